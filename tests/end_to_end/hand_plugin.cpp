#include "hand_plugin.h"

#include "wire_text.h"

#include <QAbstractButton>
#include <QAction>
#include <QApplication>
#include <QDialogButtonBox>
#include <QFileDialog>
#include <QKeyEvent>
#include <QLineEdit>
#include <QMenu>
#include <QMenuBar>
#include <QMessageBox>
#include <QMouseEvent>
#include <QPushButton>
#include <QTabWidget>
#include <QVariant>

#include <array>
#include <cstdlib>
#include <fcntl.h>
#include <stdexcept>
#include <unistd.h>

namespace orbkl4::test {

namespace {

constexpr const char* answeredMark = "answeredByHand";

[[noreturn]] void Refuse(const std::string& why) { throw std::runtime_error(why); }

bool IsScreen(const QWidget* widget) {
    return widget->inherits("orbkl4::Screen") || widget->inherits("orbkl4::MdiFrame");
}

QWidget& ScreenCalled(const std::string& name) {
    for (QWidget* widget : QApplication::allWidgets()) {
        if (IsScreen(widget) && widget->objectName().toStdString() == name) return *widget;
    }
    Refuse("no screen " + name);
}

/// The object `name` of the screen `screen`, or the screen itself where no name is given.
QObject& ObjectCalled(const std::string& screen, const std::string& name) {
    QWidget& holder = ScreenCalled(screen);
    if (name.empty()) return holder;
    auto* object = holder.findChild<QObject*>(QString::fromStdString(name));
    if (object == nullptr) Refuse("no " + name + " on " + screen);
    return *object;
}

template <typename Kind>
Kind& Called(const std::string& screen, const std::string& name) {
    auto* object = qobject_cast<Kind*>(&ObjectCalled(screen, name));
    if (object == nullptr) Refuse(name + " on " + screen + " is of another kind");
    return *object;
}

/// A person reaches what is shown, enabled and under no modal window.
void RequireReach(const QWidget& widget) {
    const std::string name = widget.objectName().toStdString();
    if (!widget.isVisible()) Refuse(name + " isn't shown");
    if (!widget.isEnabled()) Refuse(name + " is disabled");
    const QWidget* modal = QApplication::activeModalWidget();
    if (modal != nullptr && modal != &widget && !modal->isAncestorOf(&widget)) {
        Refuse(name + " lies under " + modal->metaObject()->className());
    }
}

/// The window of kind `Dialog` that is up and waits for an answer, none where there is none.
template <typename Dialog>
Dialog* DialogUp() {
    auto* dialog = qobject_cast<Dialog*>(QApplication::activeModalWidget());
    const bool waits =
        dialog != nullptr && dialog->isVisible() && !dialog->property(answeredMark).toBool();
    return waits ? dialog : nullptr;
}

template <typename Menu>
Menu* MenuHolding(const QAction& action) {
    for (QObject* object : action.associatedObjects()) {
        if (auto* menu = qobject_cast<Menu*>(object)) return menu;
    }
    Refuse("no menu holds " + action.objectName().toStdString());
}

std::string PlainText(QString text) { return text.remove(QLatin1Char('&')).toStdString(); }

void SendKey(QWidget& widget, int key, Qt::KeyboardModifiers modifiers = Qt::NoModifier,
             const QString& text = QString()) {
    for (const auto type : {QEvent::KeyPress, QEvent::KeyRelease}) {
        QKeyEvent event(type, key, modifiers, text);
        QApplication::sendEvent(&widget, &event);
    }
}

}  // namespace

Hand::Hand(int socket) : socket_(socket), ear_(socket, QSocketNotifier::Read) {
    ::fcntl(socket_, F_SETFD, FD_CLOEXEC);
    connect(&ear_, &QSocketNotifier::activated, this, &Hand::Hear);
}

const std::vector<Hand::Order>& Hand::Orders() {
    static const std::vector<Order> orders{
        {"screens", 0, &Hand::Screens}, {"get", 3, &Hand::Get},
        {"choose", 2, &Hand::Choose},   {"unlock", 2, &Hand::Unlock},
        {"press", 2, &Hand::Press},     {"type", 3, &Hand::Type},
        {"turn", 3, &Hand::Turn},       {"box", 0, &Hand::Box},
        {"answer", 1, &Hand::Answer},   {"file", 1, &Hand::File},
        {"grab", 1, &Hand::Grab},       {"close", 0, &Hand::CloseFrame},
        {"dialog", 0, &Hand::Dialog},   {"gesture", 2, &Hand::Gesture},
    };
    return orders;
}

void Hand::Hear() {
    std::array<char, 4096> chunk{};
    const auto count = ::read(socket_, chunk.data(), chunk.size());
    if (count <= 0) std::_Exit(EXIT_FAILURE);  // whoever gave the orders is gone
    heard_.append(chunk.data(), static_cast<std::size_t>(count));
    for (auto end = heard_.find('\n'); end != std::string::npos; end = heard_.find('\n')) {
        const std::string line = heard_.substr(0, end);
        heard_.erase(0, end + 1);
        Obey(line);
    }
}

void Hand::Obey(const std::string& line) {
    Words words = WireFields(line);
    const std::string name = words.front();
    words.erase(words.begin());
    try {
        for (const Order& order : Orders()) {
            if (order.name != name) continue;
            if (words.size() != order.words) Refuse("wrong number of words for " + name);
            Words answer = (this->*order.obey)(words);
            answer.insert(answer.begin(), "ok");
            Say(answer);
            return;
        }
        Refuse("no order " + name);
    } catch (const std::runtime_error& error) {
        Say({"no", error.what()});
    }
}

void Hand::Say(const Words& words) const {
    const std::string line = WireLine(words);
    if (::write(socket_, line.data(), line.size()) < 0) std::_Exit(EXIT_FAILURE);
}

void Hand::DoSoon(std::function<void()> deed) {
    QMetaObject::invokeMethod(this, std::move(deed), Qt::QueuedConnection);
}

Hand::Words Hand::Screens(const Words& /*words*/) {
    Words names;
    for (const QWidget* widget : QApplication::allWidgets()) {
        if (IsScreen(widget) && widget->isVisible()) {
            names.push_back(widget->objectName().toStdString());
        }
    }
    return names;
}

Hand::Words Hand::Get(const Words& words) {
    const QVariant value = ObjectCalled(words[0], words[1]).property(words[2].c_str());
    if (!value.isValid()) Refuse(words[1] + " has no " + words[2]);
    return {value.toString().toStdString()};
}

/// Opens the entry's menu and presses Enter on the entry.
Hand::Words Hand::Choose(const Words& words) {
    auto& entry = Called<QAction>(words[0], words[1]);
    auto* menu = MenuHolding<QMenu>(entry);
    auto* bar = MenuHolding<QMenuBar>(*menu->menuAction());
    RequireReach(*bar);
    for (const QAction* action : {menu->menuAction(), &entry}) {
        const std::string name = action->objectName().toStdString();
        if (!action->isVisible()) Refuse(name + " isn't shown");
        if (!action->isEnabled()) Refuse(name + " is disabled");
    }
    DoSoon([bar, menu, &entry] {
        bar->setActiveAction(menu->menuAction());
        menu->setActiveAction(&entry);
        SendKey(*menu, Qt::Key_Return);
    });
    return {};
}

Hand::Words Hand::Unlock(const Words& words) {
    Called<QAction>(words[0], words[1]).setEnabled(true);
    return {};
}

Hand::Words Hand::Press(const Words& words) {
    auto& button = Called<QAbstractButton>(words[0], words[1]);
    RequireReach(button);
    DoSoon([&button] { button.click(); });
    return {};
}

/// Types over what the field holds, and leaves it.
Hand::Words Hand::Type(const Words& words) {
    auto& field = Called<QWidget>(words[0], words[1]);
    RequireReach(field);
    DoSoon([&field, text = QString::fromStdString(words[2])] {
        field.setFocus();
        SendKey(field, Qt::Key_A, Qt::ControlModifier);
        for (const QChar c : text) SendKey(field, c.unicode(), Qt::NoModifier, c);
        SendKey(field, Qt::Key_Tab);
    });
    return {};
}

Hand::Words Hand::Turn(const Words& words) {
    auto& tabs = Called<QTabWidget>(words[0], words[1]);
    RequireReach(tabs);
    for (int i = 0; i < tabs.count(); ++i) {
        if (PlainText(tabs.tabText(i)) != words[2]) continue;
        tabs.setCurrentIndex(i);
        return {};
    }
    Refuse("no tab " + words[2]);
}

/// Title, text and buttons of the message box that is up; nothing where there is none.
Hand::Words Hand::Box(const Words& /*words*/) {
    const auto* box = DialogUp<QMessageBox>();
    if (box == nullptr) return {};
    Words answer{box->windowTitle().toStdString(), box->text().toStdString()};
    for (const QAbstractButton* button : box->buttons()) {
        answer.push_back(PlainText(button->text()));
    }
    return answer;
}

Hand::Words Hand::Answer(const Words& words) {
    auto* box = DialogUp<QMessageBox>();
    if (box == nullptr) Refuse("no box is up");
    for (QAbstractButton* button : box->buttons()) {
        if (PlainText(button->text()) != words[0]) continue;
        box->setProperty(answeredMark, true);
        DoSoon([button] { button->click(); });
        return {};
    }
    Refuse("the box has no button " + words[0]);
}

/// Presses the middle button on an object while Shift and Ctrl are held.
Hand::Words Hand::Gesture(const Words& words) {
    auto& widget = Called<QWidget>(words[0], words[1]);
    RequireReach(widget);
    const QPointF spot = widget.rect().center();
    QMouseEvent press(QEvent::MouseButtonPress, spot, widget.mapToGlobal(spot), Qt::MiddleButton,
                      Qt::MiddleButton, Qt::ShiftModifier | Qt::ControlModifier);
    QApplication::sendEvent(&widget, &press);
    return {};
}

/// The folder of the file dialog that is up; nothing where there is none.
Hand::Words Hand::Dialog(const Words& /*words*/) {
    const auto* dialog = DialogUp<QFileDialog>();
    if (dialog == nullptr) return {};
    return {dialog->directory().absolutePath().toStdString()};
}

/// Types a path into the file dialog that is up and presses Save; an empty path cancels it.
Hand::Words Hand::File(const Words& words) {
    auto* dialog = DialogUp<QFileDialog>();
    if (dialog == nullptr) Refuse("no file dialog is up");
    auto* name = dialog->findChild<QLineEdit*>(QStringLiteral("fileNameEdit"));
    auto* buttons = dialog->findChild<QDialogButtonBox*>();
    DoSoon([name, buttons, path = QString::fromStdString(words[0])] {
        name->setText(path);
        const auto button = path.isEmpty() ? QDialogButtonBox::Cancel : QDialogButtonBox::Save;
        buttons->button(button)->click();
    });
    return {};
}

Hand::Words Hand::Grab(const Words& words) {
    QWidget* over = QApplication::activeModalWidget();
    QWidget& top = over != nullptr ? *over : ScreenCalled("MDIForm1");
    if (!top.grab().save(QString::fromStdString(words[0]))) Refuse("can't save " + words[0]);
    return {};
}

Hand::Words Hand::CloseFrame(const Words& /*words*/) {
    QWidget& frame = ScreenCalled("MDIForm1");
    RequireReach(frame);
    DoSoon([&frame] { frame.close(); });
    return {};
}

QObject* HandPlugin::create(const QString& /*key*/, const QString& spec) {
    return new Hand(spec.toInt());
}

}  // namespace orbkl4::test
