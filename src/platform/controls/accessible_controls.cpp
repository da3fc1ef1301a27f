#include "platform/controls/accessible_controls.h"

#include "platform/controls/cw_button.h"
#include "platform/controls/cw_graph.h"
#include "platform/controls/cw_knob.h"
#include "platform/controls/cw_slide.h"
#include "platform/controls/text_field.h"

#include <QAccessibleValueInterface>
#include <QAccessibleWidget>

namespace orbkl4 {

namespace {

/// A painted control as assistive technology sees it; its state is read from its Qt properties.
class AccessibleControl final : public QAccessibleWidget, public QAccessibleValueInterface {
  public:
    AccessibleControl(QWidget* control, QAccessible::Role role)
        : QAccessibleWidget(control, role) {}

    QString text(QAccessible::Text kind) const override {
        if (kind != QAccessible::Value) return QAccessibleWidget::text(kind);
        const QVariant text = object()->property("text");
        return text.isValid() ? text.toString() : currentValue().toString();
    }

    QAccessible::State state() const override {
        QAccessible::State state = QAccessibleWidget::state();
        state.readOnly = !IsSettable();
        state.selectableText = role() == QAccessible::StaticText;
        return state;
    }

    void* interface_cast(QAccessible::InterfaceType type) override {
        if (type == QAccessible::ValueInterface && currentValue().isValid()) {
            return static_cast<QAccessibleValueInterface*>(this);
        }
        return QAccessibleWidget::interface_cast(type);
    }

    QVariant currentValue() const override { return object()->property("value"); }
    void setCurrentValue(const QVariant& value) override {
        if (IsSettable()) object()->setProperty("value", value);
    }
    QVariant maximumValue() const override { return object()->property("maximum"); }
    QVariant minimumValue() const override { return object()->property("minimum"); }
    QVariant minimumStepSize() const override { return object()->property("step"); }

  private:
    bool IsSettable() const {
        const auto* slide = qobject_cast<const CWSlide*>(object());
        return slide != nullptr && slide->Interactive();
    }
};

QAccessibleInterface* MakeAccessible(const QString& /*className*/, QObject* object) {
    if (auto* field = qobject_cast<TextField*>(object)) {
        return new AccessibleControl(field, QAccessible::StaticText);
    }
    if (auto* slide = qobject_cast<CWSlide*>(object)) {
        return new AccessibleControl(slide, QAccessible::Slider);
    }
    if (auto* knob = qobject_cast<CWKnob*>(object)) {
        return new AccessibleControl(knob, QAccessible::Dial);
    }
    if (auto* lamp = qobject_cast<CWButton*>(object)) {
        return new AccessibleControl(lamp, QAccessible::Indicator);
    }
    if (auto* graph = qobject_cast<CWGraph*>(object)) {
        return new AccessibleControl(graph, QAccessible::Chart);
    }
    return nullptr;
}

}  // namespace

void InstallAccessibleControls() {
    QAccessible::removeFactory(MakeAccessible);
    QAccessible::installFactory(MakeAccessible);
}

}  // namespace orbkl4
