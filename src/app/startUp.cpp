#include "app/startUp.h"

#include "app/MDIFormQuerna.h"
#include "controls/editor/editorKeys.h"
#include "controls/forms/ColourTheme.h"
#include "controls/forms/CommonDialog.h"
#include "controls/forms/WaitingLoop.h"
#include "controls/forms/icons.h"
#include "platform/process.h"

#include <QApplication>
#include <QByteArray>
#include <QPalette>
#include <QStringList>

#include <algorithm>
#include <cstdio>
#include <string_view>
#include <vector>

using namespace Qt::StringLiterals;

namespace {

constexpr const char *help = R"(Querna                         starts with the login dialog
Querna "<connection string>"   starts on that database
Querna --version               tells the version
Querna --help                  tells this

A connection string is a list of items that each end with a semicolon, for example
  "DSN=payroll;Uid=me;Pwd=secret;"
  "Provider=OraOLEDB.Oracle;Data Source=ORCL;User ID=scott;Password=tiger;"
  "Provider=OrbekSandbox;Data Source=SANDBOX;User ID=scott;Password=tiger;"
The last one opens the practice database, which Linux alone has.
)";

/// Answers what a shell may ask where there is no display.
/// @returns whether it was asked
bool answeredWithoutWindow(int argc, char **argv)
{
    const std::string_view asked = argc == 2 ? argv[1] : "";
    if (asked == "--help" || asked == "-h")
        std::fputs(help, stdout);
    else if (asked == "--version")
        std::puts("Querna " QUERNA_VERSION);
    else
        return false;
    return true;
}

} // namespace

void prepareApplication()
{
    QApplication::setDesktopFileName(u"querna"_s);
    QApplication::setWindowIcon(themedIcon(u"querna"_s));
    QPalette hints; // some desktops' palettes leave it black on any ground
    hints.setColor(QPalette::PlaceholderText, ColourTheme(QApplication::palette()).lineNumber());
    QApplication::setPalette(hints);
    showMessagesInWindows();
    WaitingLoop::install();
    stopAltCharacters();
}

QString commandLineOf(const QStringList &arguments)
{
    return arguments.mid(1).join(u' ');
}

int runQuerna(int argc, char **argv)
{
    reachConsole();
    if (answeredWithoutWindow(argc, argv))
        return 0;
    // The application goes on referring to its arguments, which are then out of others' sight.
    std::vector<QByteArray> texts(argv, argv + argc);
    std::vector<char *> arguments;
    arguments.reserve(texts.size());
    for (QByteArray &text : texts)
        arguments.push_back(text.data());
    for (int i = 1; i < argc; ++i)
        std::fill_n(argv[i], texts[static_cast<size_t>(i)].size(), '\0');
    QApplication application(argc, arguments.data());
    prepareApplication();
    MDIFormQuerna frame;
    frame.Form_Load(commandLineOf(QApplication::arguments()));
    return QApplication::exec();
}
