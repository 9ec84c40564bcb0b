#pragma once

#include "controls/forms/toolBarButtons.h"

class Connection;
class ResultPaging;
class frmQuerna;
struct WindowControls;

/// The commands of an editor window's main toolbar, by button.
class ToolbarCommands
{
public:
    ToolbarCommands(frmQuerna &window, WindowControls &controls, ResultPaging &paging)
        : m_window(window)
        , m_controls(controls)
        , m_paging(paging)
    {
    }

    /// The toolbar's buttons, separators included.
    static QList<ToolBarButton> buttons();

    /// @param index  the button's place, counted from 1; separators and others do nothing. A
    ///               failure is shown and ends the command
    void execute(int index);

private:
    void dispatch(int index);
    void showFailure();
    void run();
    void runScript();
    void exportData();
    void chooseBackground();
    void endTransaction(void (Connection::*end)(), const QString &information);
    template <typename Picker>
    void pickObject();
    void recallHistory();

    frmQuerna &m_window;
    WindowControls &m_controls;
    ResultPaging &m_paging;
};
