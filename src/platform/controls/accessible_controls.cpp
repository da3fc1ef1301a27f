#include "platform/controls/accessible_controls.h"

#include "platform/controls/cw_button.h"
#include "platform/controls/cw_graph.h"
#include "platform/controls/cw_knob.h"
#include "platform/controls/cw_slide.h"

#include <QAccessibleValueInterface>
#include <QAccessibleWidget>

namespace orbkl4 {

namespace {

/// A painted control as assistive technology sees it, read from its Qt properties.
class AccessibleControl final : public QAccessibleWidget, public QAccessibleValueInterface {
  public:
    AccessibleControl(QWidget* control, QAccessible::Role role)
        : QAccessibleWidget(control, role) {}

    QString text(QAccessible::Text kind) const override {
        return kind == QAccessible::Value ? currentValue().toString()
                                          : QAccessibleWidget::text(kind);
    }

    QAccessible::State state() const override {
        QAccessible::State state = QAccessibleWidget::state();
        state.readOnly = !IsSettable();
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
    struct Kind {
        const QMetaObject& type;
        QAccessible::Role role;
    };
    for (const auto& [type, role] : {Kind{CWSlide::staticMetaObject, QAccessible::Slider},
                                     Kind{CWKnob::staticMetaObject, QAccessible::Dial},
                                     Kind{CWButton::staticMetaObject, QAccessible::Indicator},
                                     Kind{CWGraph::staticMetaObject, QAccessible::Chart}}) {
        QObject* control = type.cast(object);
        if (control != nullptr) return new AccessibleControl(static_cast<QWidget*>(control), role);
    }
    return nullptr;
}

}  // namespace

void InstallAccessibleControls() {
    QAccessible::removeFactory(MakeAccessible);
    QAccessible::installFactory(MakeAccessible);
}

}  // namespace orbkl4
