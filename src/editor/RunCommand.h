#pragma once

#include <QString>

#include <functional>
#include <memory>

struct WindowControls;
class ExplainPlan;
class OutputCapture;
class ResultPaging;

/// Runs the selected text, or the whole text when nothing is selected. The visible tab decides how:
/// its rows are shown, its plan, or what it writes to the server's output.
class RunCommand
{
public:
    RunCommand(WindowControls &controls, ResultPaging &paging,
               std::function<void()> refreshCaption);
    ~RunCommand();

    /// Shows its own failures.
    void run();

private:
    void runStatement(const QString &original);
    void runData(const QString &original, const QString &statement);
    void showExecutionTime();

    WindowControls &m_controls;
    ResultPaging &m_paging;
    std::function<void()> m_refreshCaption;
    std::unique_ptr<ExplainPlan> m_plan;
    std::unique_ptr<OutputCapture> m_output;
};
