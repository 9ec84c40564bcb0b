#include "Tour.h"

#include <QApplication>

#include <cstdio>

/// Walks through the program on the sandbox and leaves pictures in the folder given.
/// @returns 1 when a step has not shown what it should
int main(int argc, char *argv[])
{
    if (argc != 2) {
        std::fprintf(stderr, "The folder for the pictures is expected.\n");
        return 2;
    }
    const QApplication application(argc, argv);
    Tour tour(QString::fromLocal8Bit(argv[1]));
    tourLogOn(tour);
    tour.noteCommandsUsed();
    tourRows(tour);
    tourPlanAndOutput(tour);
    tourTransactions(tour);
    tourTextCommands(tour);
    tourEditMenu(tour);
    tourPickersAndHistory(tour);
    tourExports(tour);
    tourFiles(tour);
    tourOtherPrograms(tour);
    tourFailures(tour);
    tourExit(tour);
    tour.expectEveryCommandUsed();
    std::printf("%d faults; the pictures are in %s\n", tour.faults(), argv[1]);
    return tour.faults() == 0 ? 0 : 1;
}
