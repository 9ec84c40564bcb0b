#pragma once

#include <QString>

#include <functional>

class QPlainTextEdit;

/// Runs a statement with the server's output buffer on and shows every line that it wrote.
class OutputCapture
{
public:
    /// @param showExecutionTime  called when the statement is about to be sent
    OutputCapture(QPlainTextEdit *pane, std::function<void()> showExecutionTime);

    /// @param bufferSize  the server buffer's size in bytes, sent as it stands
    /// @throws RuntimeError the server's; the lines that came before it stay in the pane, and the
    ///         server's buffer stays on until the next capture
    void run(const QString &statement, const QString &bufferSize);

private:
    void fetchLines();

    QPlainTextEdit *m_pane;
    std::function<void()> m_showExecutionTime;
};
