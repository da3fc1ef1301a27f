#include "platform/controls/accessible_controls.h"

#include "platform/controls/combo_box.h"
#include "platform/controls/cw_button.h"
#include "platform/controls/cw_graph.h"
#include "platform/controls/cw_knob.h"
#include "platform/controls/cw_slide.h"
#include "platform/controls/picture.h"
#include "platform/windows/screen.h"

#include <QAbstractItemView>
#include <QAccessibleValueInterface>
#include <QAccessibleWidget>

namespace orbkl4 {

namespace {

/// A painted control as assistive technology sees it, read from its Qt properties: a number is a
/// value with limits, true or false is a check mark, and a text is a text. Its parts aren't
/// exposed.
class AccessibleControl final : public QAccessibleWidget, public QAccessibleValueInterface {
  public:
    AccessibleControl(QWidget* control, QAccessible::Role role)
        : QAccessibleWidget(control, role) {}

    QString text(QAccessible::Text kind) const override {
        // Linux has no value that is a text, but reads out descriptions.
        const QVariant text = object()->property("text");
        if (kind == QAccessible::Description && text.isValid()) return text.toString();
        if (kind != QAccessible::Value) return QAccessibleWidget::text(kind);
        return HasNumber() ? currentValue().toString() : text.toString();
    }

    QAccessible::State state() const override {
        QAccessible::State state = QAccessibleWidget::state();
        state.readOnly = !IsSettable();
        state.checkable = currentValue().typeId() == QMetaType::Bool;
        state.checked = state.checkable && currentValue().toBool();
        return state;
    }

    void* interface_cast(QAccessible::InterfaceType type) override {
        if (type == QAccessible::ValueInterface && HasNumber()) {
            return static_cast<QAccessibleValueInterface*>(this);
        }
        return QAccessibleWidget::interface_cast(type);
    }

    int childCount() const override { return 0; }
    QAccessibleInterface* child(int /*index*/) const override { return nullptr; }

    QVariant currentValue() const override { return object()->property("value"); }
    void setCurrentValue(const QVariant& value) override {
        if (IsSettable()) object()->setProperty("value", value);
    }
    QVariant maximumValue() const override { return object()->property("maximum"); }
    QVariant minimumValue() const override { return object()->property("minimum"); }
    QVariant minimumStepSize() const override { return object()->property("step"); }

  private:
    bool HasNumber() const { return currentValue().typeId() == QMetaType::Double; }

    bool IsSettable() const {
        const auto* slide = qobject_cast<const CWSlide*>(object());
        return slide != nullptr && slide->Interactive();
    }
};

/// A drop-down list, which on Linux would have its chosen row for its name.
class AccessibleList final : public QAccessibleWidget {
  public:
    explicit AccessibleList(ComboBox* list)
        : QAccessibleWidget(list, QAccessible::ComboBox), list_(list) {}

    QString text(QAccessible::Text kind) const override {
        return kind == QAccessible::Value ? list_->Text() : QAccessibleWidget::text(kind);
    }

    QAccessible::State state() const override {
        QAccessible::State state = QAccessibleWidget::state();
        state.expandable = true;
        state.expanded = list_->view()->isVisible();
        state.collapsed = !state.expanded;
        return state;
    }

    int childCount() const override { return 1; }
    QAccessibleInterface* child(int index) const override {
        return index == 0 ? QAccessible::queryAccessibleInterface(list_->view()) : nullptr;
    }
    int indexOfChild(const QAccessibleInterface* child) const override {
        return child->object() == list_->view() ? 0 : -1;
    }

    QStringList actionNames() const override { return {showMenuAction(), setFocusAction()}; }
    void doAction(const QString& action) override {
        if (action != showMenuAction()) return QAccessibleWidget::doAction(action);
        list_->view()->isVisible() ? list_->hidePopup() : list_->showPopup();
    }

  private:
    ComboBox* list_;
};

/// A screen: a dialog, or a part of the frame.
class AccessibleScreen final : public QAccessibleWidget {
  public:
    explicit AccessibleScreen(Screen* screen) : QAccessibleWidget(screen), screen_(screen) {}

    QString text(QAccessible::Text kind) const override {
        return kind == QAccessible::Name ? screen_->windowTitle() : QAccessibleWidget::text(kind);
    }

    QAccessible::Role role() const override {
        return screen_->isWindow() ? QAccessible::Dialog : QAccessible::Pane;
    }

    QAccessible::State state() const override {
        QAccessible::State state = QAccessibleWidget::state();
        state.modal = screen_->isModal();
        return state;
    }

  private:
    Screen* screen_;
};

QAccessibleInterface* MakeAccessible(const QString& /*className*/, QObject* object) {
    if (auto* screen = qobject_cast<Screen*>(object)) return new AccessibleScreen(screen);
    if (auto* list = qobject_cast<ComboBox*>(object)) return new AccessibleList(list);
    struct Kind {
        const QMetaObject& type;
        QAccessible::Role role;
    };
    // A lamp is a check box that can't be changed: Linux knows no indicators.
    for (const auto& [type, role] : {Kind{CWSlide::staticMetaObject, QAccessible::Slider},
                                     Kind{CWKnob::staticMetaObject, QAccessible::Dial},
                                     Kind{CWButton::staticMetaObject, QAccessible::CheckBox},
                                     Kind{CWGraph::staticMetaObject, QAccessible::Chart},
                                     Kind{Picture::staticMetaObject, QAccessible::Graphic}}) {
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
