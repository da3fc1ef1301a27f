// What any Qt program costs: one empty window, of the size of the workbench's; with the argument
// "text", one that shows a line of text.

#include <QApplication>
#include <QLabel>
#include <QMainWindow>

int main(int argc, char** argv) {
    const QApplication application(argc, argv);
    QMainWindow window;
    if (QApplication::arguments().contains(QStringLiteral("text"))) {
        window.setCentralWidget(new QLabel(QStringLiteral("A line of text")));
    }
    window.resize(1240, 760);
    window.show();
    return QApplication::exec();
}
