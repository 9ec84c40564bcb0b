// A main window of the toolkit and nothing else, which tells when it has come up.

#include "startup/announceWhenShown.h"

#include <QApplication>
#include <QMainWindow>

int main(int argc, char **argv)
{
    announceWhenShown([](const QWidget &widget) {
        return qobject_cast<const QMainWindow *>(&widget) != nullptr;
    });
    QApplication application(argc, argv);
    QMainWindow window;
    window.resize(1100, 780);
    window.show();
    return QApplication::exec();
}
