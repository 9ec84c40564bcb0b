#pragma once

#include <QDir>
#include <QString>
#include <QStringList>

#include <functional>

class DataGrid;
class EditorControl;
class MDIFormQuerna;
class QWidget;
class frmQuerna;

/// A walk through the program with a picture of every step. Each step says what the window showed
/// and is held against what it should show.
class Tour
{
public:
    explicit Tour(const QString &pictureFolder);

    /// Saves @p window's picture under the step's number and @p name, and prints what the editor
    /// window shows at this moment.
    void picture(const QString &name, QWidget *window);

    /// Notes a fault when @p holds is false.
    void expect(bool holds, const QString &what);

    /// Presses the toolbar button with this place, as the mouse does.
    void press(const QString &toolBar, int index);
    void type(const QString &text);
    /// Replaces the editor's text by @p text, typed, and presses Run.
    void run(const QString &text);
    /// Triggers a menu item by its object name.
    void menu(const QString &name);

    /// Does @p start, which opens a modal window, and hands the window to @p visit, which closes
    /// it.
    void modal(const std::function<void()> &start, const std::function<void(QWidget *)> &visit);
    /// Does @p start and answers the message that it shows with the button of that caption.
    /// @returns the message's text; empty when none was shown
    QString message(const std::function<void()> &start, const QString &button,
                    const QString &pictureName = {});

    /// From here on the commands of the menus and toolbars are noted as they are used.
    void noteCommandsUsed();
    void expectEveryCommandUsed();

    frmQuerna *editor() const;
    EditorControl *text() const;
    DataGrid *grid() const;
    QString panel(int number) const;
    int gridRows() const;

    QDir folder() const { return m_folder; }
    int faults() const { return m_faults; }

private:
    /// @param isMessage  whether a message box or any other modal window is waited for
    void visitModal(const std::function<void()> &start, const std::function<void(QWidget *)> &visit,
                    bool isMessage);

    QDir m_folder;
    QStringList m_unusedCommands;
    int m_step = 0;
    int m_faults = 0;
};

/// Lets the windows settle: events, painting, layouts.
void settle(int milliseconds = 60);

/// A child of the program's windows by object name; never null, the tour ends when it is missing.
QWidget *control(const QString &name);
template <typename Control>
Control *control(const QString &name)
{
    return qobject_cast<Control *>(control(name));
}

/// Clicks an option button on its mark, which is all of it that is sure to answer.
void clickOption(const QString &name);

// The stations, each on the windows that the one before has left.
void tourLogOn(Tour &tour, MDIFormQuerna &frame);
void tourRows(Tour &tour);
void tourPlanAndOutput(Tour &tour);
void tourTransactions(Tour &tour);
void tourTextCommands(Tour &tour);
void tourEditMenu(Tour &tour);
void tourFontCommand(Tour &tour);
void tourPickersAndHistory(Tour &tour);
void tourExports(Tour &tour);
void tourFiles(Tour &tour);
void tourOtherPrograms(Tour &tour);
void tourFailures(Tour &tour);
void tourExit(Tour &tour);
