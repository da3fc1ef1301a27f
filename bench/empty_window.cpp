// What any Qt program costs: one empty window, of the size of the workbench's.

#include <QApplication>
#include <QMainWindow>

int main(int argc, char** argv) {
    const QApplication application(argc, argv);
    QMainWindow window;
    window.resize(1240, 760);
    window.show();
    return QApplication::exec();
}
