#include "driver_plugin.h"

#include "end_to_end/wire_text.h"
#include "support/offscreen_noise.h"

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
#include <QPushButton>
#include <QSocketNotifier>
#include <QVariant>

#include <array>
#include <cstdlib>
#include <functional>
#include <map>
#include <stdexcept>
#include <unistd.h>

namespace orbkl4::test {

namespace {

// A command is its name and arguments; it returns its answer.
using Words = std::vector<std::string>;

constexpr const char* answeredMark = "answeredByDriver";

[[noreturn]] void Refuse(const std::string& why) { throw std::runtime_error(why); }

/// Runs `action` after the answer, as it may open a box and block until that is answered.
void RunLater(std::function<void()> action) {
    QMetaObject::invokeMethod(qApp, std::move(action), Qt::QueuedConnection);
}

bool IsScreen(const QWidget* widget) {
    return widget->inherits("orbkl4::Screen") || widget->inherits("orbkl4::MdiFrame");
}

QWidget& ScreenCalled(const std::string& name) {
    for (QWidget* widget : QApplication::allWidgets()) {
        if (IsScreen(widget) && widget->objectName().toStdString() == name) return *widget;
    }
    Refuse("no screen " + name);
}

/// The object named words[2] on the screen words[1], or the screen itself if that name is empty.
template <typename Kind = QObject>
Kind& Called(const Words& words) {
    QObject* object = &ScreenCalled(words[1]);
    if (!words[2].empty()) object = object->findChild<QObject*>(QString::fromStdString(words[2]));
    auto* found = qobject_cast<Kind*>(object);
    if (found == nullptr) Refuse("no such " + words[2] + " on " + words[1]);
    return *found;
}

/// A user reaches what is shown and enabled.
template <typename Kind>
void RequireUse(const Kind& object) {
    const std::string name = object.objectName().toStdString();
    if (!object.isVisible()) Refuse(name + " isn't shown");
    if (!object.isEnabled()) Refuse(name + " is disabled");
}

/// A user reaches what no modal window covers.
void RequireReach(const QWidget& widget) {
    RequireUse(widget);
    const QWidget* modal = QApplication::activeModalWidget();
    if (modal != nullptr && modal != &widget && !modal->isAncestorOf(&widget)) {
        Refuse(widget.objectName().toStdString() + " is covered by a window");
    }
}

/// The window of kind `Dialog` that waits for an answer, null if there is none.
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

Words Screens(const Words& /*words*/) {
    Words names;
    for (const QWidget* widget : QApplication::allWidgets()) {
        if (IsScreen(widget) && widget->isVisible()) {
            names.push_back(widget->objectName().toStdString());
        }
    }
    return names;
}

Words Get(const Words& words) {
    const QVariant value = Called(words).property(words[3].c_str());
    if (!value.isValid()) Refuse(words[2] + " has no " + words[3]);
    return {value.toString().toStdString()};
}

/// Opens the entry's menu and presses Enter on the entry.
Words Choose(const Words& words) {
    auto& entry = Called<QAction>(words);
    auto* menu = MenuHolding<QMenu>(entry);
    auto* bar = MenuHolding<QMenuBar>(*menu->menuAction());
    RequireReach(*bar);
    RequireUse(*menu->menuAction());
    RequireUse(entry);
    RunLater([bar, menu, &entry] {
        bar->setActiveAction(menu->menuAction());
        menu->setActiveAction(&entry);
        for (const auto type : {QEvent::KeyPress, QEvent::KeyRelease}) {
            QKeyEvent event(type, Qt::Key_Return, Qt::NoModifier);
            QApplication::sendEvent(menu, &event);
        }
    });
    return {};
}

Words Unlock(const Words& words) {
    auto& entry = Called<QAction>(words);
    entry.setVisible(true);
    entry.setEnabled(true);
    return {};
}

Words Press(const Words& words) {
    auto& button = Called<QAbstractButton>(words);
    RequireReach(button);
    RunLater([&button] { button.click(); });
    return {};
}

/// Title, text and buttons of the message box that is up; nothing if there is none.
Words Box(const Words& /*words*/) {
    const auto* box = DialogUp<QMessageBox>();
    if (box == nullptr) return {};
    Words answer{box->windowTitle().toStdString(), box->text().toStdString()};
    for (const QAbstractButton* button : box->buttons()) {
        answer.push_back(PlainText(button->text()));
    }
    return answer;
}

Words Answer(const Words& words) {
    auto* box = DialogUp<QMessageBox>();
    if (box == nullptr) Refuse("no box is up");
    for (QAbstractButton* button : box->buttons()) {
        if (PlainText(button->text()) != words[1]) continue;
        box->setProperty(answeredMark, true);
        RunLater([button] { button->click(); });
        return {};
    }
    Refuse("the box has no button " + words[1]);
}

/// Types a path into the file dialog that is up and presses Save; nothing if there is none.
Words File(const Words& words) {
    auto* dialog = DialogUp<QFileDialog>();
    if (dialog == nullptr) return {};
    auto* name = dialog->findChild<QLineEdit*>(QStringLiteral("fileNameEdit"));
    auto* buttons = dialog->findChild<QDialogButtonBox*>();
    RunLater([name, buttons, path = QString::fromStdString(words[1])] {
        name->setText(path);
        buttons->button(QDialogButtonBox::Save)->click();
    });
    return {"saved"};
}

Words CloseFrame(const Words& /*words*/) {
    QWidget& frame = ScreenCalled("MDIForm1");
    RequireReach(frame);
    RunLater([&frame] { frame.close(); });
    return {};
}

Words Execute(const Words& words) {
    static const std::map<std::string, Words (*)(const Words&)> commands{
        {"screens", Screens}, {"get", Get},     {"choose", Choose},
        {"unlock", Unlock},   {"press", Press}, {"box", Box},
        {"answer", Answer},   {"file", File},   {"close", CloseFrame}};
    try {
        Words answer = commands.at(words.front())(words);
        answer.insert(answer.begin(), "ok");
        return answer;
    } catch (const std::runtime_error& error) {
        return {"no", error.what()};
    }
}

/// Commands come one at a time: the next one waits for the answer.
void ReadCommand() {
    static std::string received;
    std::array<char, 4096> chunk{};
    const auto count = ::read(STDIN_FILENO, chunk.data(), chunk.size());
    if (count <= 0) std::_Exit(EXIT_FAILURE);
    received.append(chunk.data(), static_cast<std::size_t>(count));
    if (!received.ends_with(messageEnd)) return;
    received.pop_back();
    const std::string answer = MessageOf(Execute(FieldsOf(received)));
    received.clear();
    if (::write(STDOUT_FILENO, answer.data(), answer.size()) < 0) std::_Exit(EXIT_FAILURE);
}

}  // namespace

QObject* DriverPlugin::create(const QString& /*key*/, const QString& /*spec*/) {
    auto* input = new QSocketNotifier(STDIN_FILENO, QSocketNotifier::Read);
    connect(input, &QSocketNotifier::activated, input, ReadCommand);
    SilenceOffscreenPlugin();
    return input;
}

}  // namespace orbkl4::test
