#include "Tour.h"

#include "app/MDIFormQuerna.h"
#include "app/startUp.h"
#include "platform/applicationFolder.h"
#include "platform/messageBox.h"
#include "platform/process.h"

#include <QApplication>
#include <QFile>

#include <cstdio>

using namespace Qt::StringLiterals;

namespace {

/// An application folder and settings of the tour's own, so that the user's stay as they are and
/// every tour begins alike.
void useOwnFolders(const QDir &pictures)
{
    const QString programFolder = QApplication::applicationDirPath() + u"/../app/"_s;
    const QString folder = pictures.absoluteFilePath(u"application"_s);
    QDir(folder).removeRecursively();
    QDir().mkpath(folder);
    for (const QString &file : {u"T-SQL.bcp"_s, u"dummy.sql"_s})
        QFile::copy(programFolder + file, folder + u'/' + file);
    setApplicationFolder(folder);
    const QString settings = pictures.absoluteFilePath(u"settings"_s);
    QDir(settings).removeRecursively();
    qputenv("XDG_CONFIG_HOME", settings.toUtf8());
}

void walk(Tour &tour)
{
    MDIFormQuerna frame;
    tourLogOn(tour, frame);
    tour.noteCommandsUsed();
    tourRows(tour);
    tourPlanAndOutput(tour);
    tourTransactions(tour);
    tourTextCommands(tour);
    tourEditMenu(tour);
    tourFontCommand(tour);
    tourPickersAndHistory(tour);
    tourExports(tour);
    tourFiles(tour);
    tourOtherPrograms(tour);
    tourFailures(tour);
    tourExit(tour);
    tour.expectEveryCommandUsed();
}

} // namespace

/// Walks through the program on the sandbox and leaves pictures in the folder given.
/// @returns 1 when a step has not shown what it should
int main(int argc, char *argv[])
{
    if (argc != 2) {
        std::fprintf(stderr, "The folder for the pictures is expected.\n");
        return 2;
    }
    QApplication application(argc, argv);
    QApplication::setAttribute(Qt::AA_DontUseNativeDialogs);
    prepareApplication();
    Tour tour(QString::fromLocal8Bit(argv[1]));
    useOwnFolders(tour.folder());
    setProgramEnd([](int) {
        std::fprintf(stderr, "The program has ended itself.\n");
        std::_Exit(1);
    });
    walk(tour);
    std::printf("%d faults; the pictures are in %s\n", tour.faults(), argv[1]);
    return tour.faults() == 0 ? 0 : 1;
}
