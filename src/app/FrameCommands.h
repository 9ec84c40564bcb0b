#pragma once

#include <QString>

class EditorControl;
class MDIFormQuerna;
class QMenuBar;
class frmQuerna;

/// The frame's menu commands. The edit commands act on the control that has the keyboard focus,
/// wherever it is; the file, font, undo and redo commands on the active editor window's text.
///
/// How a command treats a failure is part of what it does: some show it and go on, some end the
/// program as an unhandled failure does, some pass over it.
class FrameCommands
{
public:
    explicit FrameCommands(MDIFormQuerna &frame)
        : m_frame(frame)
    {
    }

    /// Puts the menus and their items into @p menuBar, each under its own object name, and leads
    /// them to these commands, which have to be there for as long as an item can be chosen.
    void addMenus(QMenuBar &menuBar);

    // File
    void mnuOrbekSqlEditor_Click();
    void mnuOpen_Click();
    void mnuSave_Click();
    void mnuPrint_Click();
    void mnuExit_Click();

    // Edit
    void mnuUndo_Click();
    void mnuRedo_Click();
    void mnuCut_Click();
    void mnuCopy_Click();
    void mnuPaste_Click();
    void mnuSelectAll_Click();
    void mnuDelete_Click();
    void mnuFind_Click();
    void mnuReplace_Click();

    // Connection and user group
    void mnuChangeConnection_Click();
    void mnuJoinOrbekUserGroup_Click();
    void mnuMessageOrbekUserGroup_Click();

    /// Chooses the editor's font; no menu item leads here.
    void mnuFont_Click();

    /// Opens a file that was dropped on the editor, as Open does. One that cannot be read is
    /// reported, and the text stays.
    void openDropped(frmQuerna &window, const QString &path);

private:
    void executeOnEditor(int command);
    void openFile(EditorControl &editor, frmQuerna &window);
    void saveFile(const EditorControl &editor, frmQuerna &window);

    MDIFormQuerna &m_frame;
};
