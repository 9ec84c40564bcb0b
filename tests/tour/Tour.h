#pragma once

#include "uisupport/ProgramFixture.h"

#include <QDir>
#include <QStringList>

#include <functional>

/// A walk through the program with a picture of every step. Each step says what the window showed
/// and is held against what it should show.
class Tour : public ProgramFixture
{
public:
    explicit Tour(const QString &pictureFolder);

    /// Saves the picture of @p window, by default the frame, under the step's number and @p name,
    /// and prints what the editor window shows at this moment.
    void picture(const QString &name, QWidget *window = nullptr);

    /// Notes a fault when @p holds is false.
    void expect(bool holds, const QString &what);

    /// Replaces the editor's text by @p statement, typed, and presses Run.
    void run(const QString &statement);
    /// Shows a result tab.
    void showTab(int index);

    /// Does @p start, which opens a modal window, and hands the window to @p visit, which closes
    /// it.
    void modal(const std::function<void()> &start, const std::function<void(QWidget *)> &visit);
    /// Does @p start and accepts the message that it shows, after a picture of it if that has a
    /// name.
    /// @returns the message's text; empty when none was shown
    QString message(const std::function<void()> &start, const QString &pictureName = {});

    /// From here on the commands of the menus and toolbars are noted as they are used.
    void noteCommandsUsed();
    void expectEveryCommandUsed();

    QString picturePath(const QString &file) const { return m_pictures.absoluteFilePath(file); }
    int faults() const { return m_faults; }

private:
    /// @param isMessage  whether a message box or any other modal window is waited for
    void visitModal(const std::function<void()> &start, const std::function<void(QWidget *)> &visit,
                    bool isMessage);

    QDir m_pictures;
    QStringList m_unusedCommands;
    int m_step = 0;
    int m_faults = 0;
};

/// Lets the windows settle: events, painting, layouts.
void settle(int milliseconds = 60);

// The stations, each on the windows that the one before has left.
void tourLogOn(Tour &tour);
void tourRows(Tour &tour);
void tourPlanAndOutput(Tour &tour);
void tourTransactions(Tour &tour);
void tourTextCommands(Tour &tour);
void tourEditMenu(Tour &tour);
void tourPickersAndHistory(Tour &tour);
void tourExports(Tour &tour);
void tourFiles(Tour &tour);
void tourOtherPrograms(Tour &tour);
void tourFailures(Tour &tour);
void tourExit(Tour &tour);
