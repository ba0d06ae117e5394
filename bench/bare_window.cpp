// A Qt Widgets window with nothing in it: the least that any start of the program costs.
#include <QApplication>
#include <QWidget>

int main(int argc, char** argv) {
    const QApplication application(argc, argv);
    QWidget window;
    window.resize(860, 810);
    window.show();
    return QApplication::exec();
}
