#pragma once

#include "controls/toolBarButtons.h"

class RunCommand;
class frmQuerna;

/// The commands of an editor window's main toolbar, by button.
class ToolbarCommands
{
public:
    ToolbarCommands(frmQuerna &window, RunCommand &run)
        : m_window(window)
        , m_run(run)
    {
    }

    /// The toolbar's buttons, separators included.
    static QList<ToolBarButton> buttons();

    /// @param index  the button's place, counted from 1; separators and others do nothing. A
    ///               failure is shown and ends the command
    void execute(int index);

private:
    void dispatch(int index);
    void runScript();
    void exportData();
    void chooseBackground();
    void commit();
    void rollback();
    template <typename Picker>
    void pickObject();
    void recallHistory();

    frmQuerna &m_window;
    RunCommand &m_run;
};
