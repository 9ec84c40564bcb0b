#pragma once

#include "app/MDIFormQuerna.h"
#include "connection/session.h"
#include "controls/grids/DataGrid.h"
#include "editor/frmQuerna.h"
#include "uisupport/uiTest.h"

/// A running program for one test: its frame, with an application folder, settings and history of
/// its own. The program's end is recorded, not carried out.
class ProgramFixture
{
public:
    ProgramFixture();
    /// Starts the program at once.
    explicit ProgramFixture(const QString &commandLine);
    ~ProgramFixture();
    ProgramFixture(const ProgramFixture &) = delete;
    ProgramFixture &operator=(const ProgramFixture &) = delete;

    /// Starts the frame as the program does, with everything behind the program's name.
    void start(const QString &commandLine);

    /// Changes the connection to an ODBC data source, through menu and login dialog.
    void logOn(const QString &user, const QString &password, const QString &database);

    MDIFormQuerna &frame() { return *m_frame; }
    /// The editor window; null when there is none.
    frmQuerna *editor() const;
    EditorControl *text() const;
    DataGrid *grid() const;
    int rows() const;
    /// What a cell of the grid shows, counted from 0.
    QString cell(int row, int column) const;
    QString panel(int number) const;
    /// A control of the frame or of the editor window by its name; null when it is missing.
    template <typename Control>
    Control *control(const QString &name) const
    {
        return qobject_cast<Control *>(control(name));
    }

    /// Shows a result tab, puts @p statement into the editor and presses Run.
    void run(const QString &statement, int tab = 0);
    /// Presses a toolbar button by its place, counted from 1.
    void press(const QString &toolBar, int index);
    QAction *menuItem(const QString &name) const;

    QString folder() const { return m_folder.path(); }
    QByteArray history() const;
    /// Exit codes with which the program has wanted to end.
    std::vector<int> ends;

private:
    QWidget *control(const QString &name) const;

    QTemporaryDir m_folder;
    std::unique_ptr<MDIFormQuerna> m_frame;
};

/// The connection string of a new SQLite database in memory, with the items that name a user and a
/// database to the program.
inline const QString sqlite =
    QStringLiteral("DRIVER=SQLite3;Database=:memory:;USER ID=scott;DATA SOURCE=dwh;");
