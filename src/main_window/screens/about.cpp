#include "main_window/screens/about.h"

#include "main_window/screens/artwork.h"
#include "platform/controls/form.h"
#include "platform/controls/picture.h"
#include "state/app_state.h"

#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

namespace orbkl4 {

About::About() : Screen("About", "About") {
    auto* picture =
        Named(new Picture(PaintEmblem, QStringLiteral("The program's emblem"), {120, 120}, this),
              "Picture1");
    auto* title = MakeLabel(this, "lblTitle", "ORB-KL4 Data Acquisition and Display Software");
    QFont bold = title->font();
    bold.setBold(true);
    title->setFont(bold);
    auto* line = MakeLabel(this, "lblLine", "for RS-232");
    auto* version = MakeLabel(this, "lblVersion", "Version " + AppState.VersionText);
    auto* cmdOK = MakeButton(this, "cmdOK", "OK", [this] { Unload(); });
    DefaultButton(*cmdOK);

    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(24, 20, 24, 20);
    column->addWidget(picture, 1);
    for (QLabel* label : {title, line, version}) column->addWidget(label, 0, Qt::AlignCenter);
    column->addSpacing(12);
    column->addWidget(cmdOK, 0, Qt::AlignCenter);
}

}  // namespace orbkl4
