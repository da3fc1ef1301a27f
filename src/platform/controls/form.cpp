#include "platform/controls/form.h"

#include "platform/controls/cw_button.h"
#include "platform/events/event_gate.h"
#include "platform/windows/colours.h"
#include "platform/windows/font_following.h"

#include <QGroupBox>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QProgressBar>
#include <QPushButton>

#include <utility>

namespace orbkl4 {

namespace {

/// Leaves Enter to the screen, which presses the marked button, so that each press looks the same.
class Button final : public QPushButton {
  public:
    using QPushButton::QPushButton;

  protected:
    void keyPressEvent(QKeyEvent* event) override {
        if (event->key() == Qt::Key_Enter || event->key() == Qt::Key_Return) {
            event->ignore();
        } else {
            QPushButton::keyPressEvent(event);
        }
    }
};

}  // namespace

QString MemberName(const char* array, int index) {
    return QStringLiteral("%1(%2)").arg(QLatin1String(array)).arg(index);
}

QLabel* MakeLabel(QWidget* parent, const char* name, std::string_view text) {
    auto* label = Named(new QLabel(parent), name);
    label->setTextFormat(Qt::PlainText);
    label->setText(ToQString(text));
    return label;
}

QLabel* MakeLabel(QWidget& control, const char* name, std::string_view text) {
    QLabel* label = MakeLabel(control.parentWidget(), name, text);
    label->setBuddy(&control);
    return label;
}

QGroupBox* MakeFrame(QWidget* parent, const char* name, const char* caption) {
    return Named(new QGroupBox(QString::fromUtf8(caption), parent), name);
}

CWButton* MakeLamp(QGroupBox& frame, const char* name) {
    auto* lamp = Named(new CWButton(&frame), name);
    lamp->setAccessibleName(QStringLiteral("%1, capturing").arg(frame.title()));
    KeepBesideCaption(frame, *lamp);
    return lamp;
}

QPushButton* MakeButton(QWidget* parent, const char* name, const char* caption,
                        std::function<void()> click) {
    auto* button = Named(new Button(QString::fromUtf8(caption), parent), name);
    button->setAutoDefault(false);
    QObject::connect(button, &QPushButton::clicked, button, [click = std::move(click)] {
        const HandlerScope scope;
        click();
    });
    return button;
}

void KeepColours(QWidget& widget) {
    QPalette palette = widget.palette();
    for (int i = 0; i < QPalette::NColorRoles; ++i) {
        const auto role = static_cast<QPalette::ColorRole>(i);
        palette.setBrush(QPalette::Disabled, role, palette.brush(QPalette::Active, role));
    }
    widget.setPalette(palette);
}

void KeepReadableDisabled(QWidget& frame) {
    QPalette palette = frame.palette();
    palette.setColor(QPalette::Disabled, QPalette::Text, colours::paleInk());
    palette.setColor(QPalette::Disabled, QPalette::WindowText, colours::paleInk());
    frame.setPalette(palette);
}

void TabThrough(const QList<QWidget*>& controls) {
    for (qsizetype i = 1; i < controls.size(); ++i)
        QWidget::setTabOrder(controls.at(i - 1), controls.at(i));
}

QProgressBar* MakeProgressBar(QWidget* parent, const char* name, int maximum) {
    auto* bar = Named(new QProgressBar(parent), name);
    bar->setRange(0, maximum);
    bar->setValue(0);
    bar->setTextVisible(false);
    KeepColours(*bar);
    return bar;
}

QLabel* MakeWarning(QWidget* parent) {
    QLabel* warning = MakeLabel(parent, "lblWarning", "Comm failure: attempting re-sample");
    QPalette palette = warning->palette();
    palette.setColor(QPalette::WindowText, colours::warning());
    warning->setPalette(palette);
    QFont bold;  // sets the weight alone, so that the size still follows the screen's
    bold.setBold(true);
    warning->setFont(bold);
    QSizePolicy policy = warning->sizePolicy();
    policy.setRetainSizeWhenHidden(true);
    warning->setSizePolicy(policy);
    warning->setVisible(false);
    return warning;
}

QVBoxLayout* MakeMiddleColumn(QWidget* screen) {
    auto* column = new QVBoxLayout;
    auto* row = new QHBoxLayout(screen);
    row->addStretch(1);
    row->addLayout(column, 8);
    row->addStretch(1);
    return column;
}

TextField* AddTextRow(QFormLayout& rows, const char* name, const char* caption) {
    auto* field = Named(new TextField(rows.parentWidget()), name);
    rows.addRow(QString::fromUtf8(caption), field);
    return field;
}

}  // namespace orbkl4
