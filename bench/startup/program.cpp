// The program as it is, which tells when its editor has come up.

#include "app/startUp.h"
#include "startup/announceWhenShown.h"

#include <QString>
#include <QWidget>

int main(int argc, char **argv)
{
    announceWhenShown([](const QWidget &widget) {
        const QWidget *editor = widget.parentWidget();
        return editor != nullptr && editor->objectName() == QLatin1StringView("txtSQL");
    });
    return runQuerna(argc, argv);
}
