#include "app/startUp.h"

#include "app/MDIFormQuerna.h"
#include "controls/icons.h"
#include "controls/uiPresenters.h"

#include <QApplication>
#include <QStringList>

using namespace Qt::StringLiterals;

void prepareApplication()
{
    QApplication::setDesktopFileName(u"querna"_s);
    QApplication::setWindowIcon(themedIcon(u"querna"_s));
    installUiPresenters();
}

QString commandLineOf(const QStringList &arguments)
{
    return arguments.mid(1).join(u' ');
}

int runQuerna(int &argc, char **argv)
{
    QApplication application(argc, argv);
    prepareApplication();
    MDIFormQuerna frame;
    frame.Form_Load(commandLineOf(QApplication::arguments()));
    return QApplication::exec();
}
