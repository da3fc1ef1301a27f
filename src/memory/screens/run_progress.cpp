#include "memory/screens/run_progress.h"

#include "platform/controls/form.h"

#include <QGroupBox>
#include <QProgressBar>
#include <QVBoxLayout>

namespace orbkl4 {

namespace {

constexpr const char* restCaption = "Progress";

}  // namespace

RunProgress::RunProgress(QWidget* screen, int minimum, int maximum)
    : fraPB_(MakeFrame(screen, "fraPB", restCaption)),
      bar_(Named(new QProgressBar(fraPB_), "PBar")) {
    bar_->setRange(minimum, maximum);
    bar_->setValue(minimum);
    bar_->setTextVisible(false);
    auto* column = new QVBoxLayout(fraPB_);
    column->addWidget(bar_);
}

void RunProgress::Value(int value) { bar_->setValue(value); }

void RunProgress::Start(int value, const char* caption) {
    Value(value);
    fraPB_->setTitle(QString::fromUtf8(caption));
}

void RunProgress::Rest() { Start(bar_->minimum(), restCaption); }

}  // namespace orbkl4
