#pragma once

#include <QGenericPlugin>
#include <QSocketNotifier>

#include <functional>
#include <string>
#include <vector>

class QAction;
class QWidget;

namespace orbkl4::test {

/// A hand inside the program, which has no command line: it takes orders over a socket that the
/// program inherited, and only does what a person at the screen could do just then.
class Hand : public QObject {
    Q_OBJECT

  public:
    /// Takes orders from the open `socket`; ends the program when its other end is closed.
    explicit Hand(int socket);

  private:
    using Words = std::vector<std::string>;

    /// An order: its name, how many words follow it, and what it does. The answer's words are
    /// returned; an order that can't be obeyed throws std::runtime_error.
    struct Order {
        const char* name;
        std::size_t words;
        Words (Hand::*obey)(const Words& words);
    };

    static const std::vector<Order>& Orders();

    void Hear();
    void Obey(const std::string& line);
    void Say(const Words& words) const;

    /// Does `deed` after the answer: it may open a box and last until that is answered.
    void DoSoon(std::function<void()> deed);

    Words Screens(const Words& words);
    Words Get(const Words& words);
    Words Choose(const Words& words);
    Words Unlock(const Words& words);
    Words Press(const Words& words);
    Words Type(const Words& words);
    Words Turn(const Words& words);
    Words Box(const Words& words);
    Words Answer(const Words& words);
    Words Gesture(const Words& words);
    Words Dialog(const Words& words);
    Words File(const Words& words);
    Words Grab(const Words& words);
    Words CloseFrame(const Words& words);

    int socket_;
    QSocketNotifier ear_;
    std::string heard_;
};

/// Makes the hand, by the key "hand" and the socket's descriptor: QT_QPA_GENERIC_PLUGINS=hand:7.
class HandPlugin : public QGenericPlugin {
    Q_OBJECT
    Q_PLUGIN_METADATA(IID QGenericPluginFactoryInterface_iid FILE "hand_plugin.json")

  public:
    QObject* create(const QString& key, const QString& spec) override;
};

}  // namespace orbkl4::test
