#include "editor/captureOutput.h"

#include "connection/session.h"
#include "dataaccess/Command.h"
#include "editor/WindowControls.h"
#include "sqltext/openWork.h"
#include "sqltext/outcomeTexts.h"

#include <QLineEdit>
#include <QPlainTextEdit>

using namespace Qt::StringLiterals;

namespace {

constexpr int longestLine = 255;

/// Collects lines and hands them to the pane at the end, however the fetching ends: rewriting the
/// pane for every line would cost time quadratic in their number.
class PaneWriter
{
public:
    explicit PaneWriter(QPlainTextEdit *pane)
        : m_pane(pane)
    {
    }
    ~PaneWriter() { m_pane->setPlainText(m_text); }
    PaneWriter(const PaneWriter &) = delete;
    PaneWriter &operator=(const PaneWriter &) = delete;

    void addLine(const QString &line)
    {
        m_text += u"  "_s + line + u"\r\n"_s;
        ++m_lines;
    }
    int lines() const { return m_lines; }

private:
    QPlainTextEdit *m_pane;
    QString m_text;
    int m_lines = 0;
};

/// @returns their number
int fetchLines(QPlainTextEdit *pane)
{
    Command getLine;
    getLine.CommandText = u"dbms_output.get_line"_s;
    getLine.ActiveConnection = requireConnection();
    getLine.appendParameter({u"lines"_s, adVarChar, longestLine, {}});
    getLine.appendParameter({u"status"_s, adInteger, 0, {}});

    PaneWriter writer(pane);
    while (getLine.parameter(u"status"_s).toInteger() == 0) {
        getLine.Execute();
        const Value &line = getLine.parameter(u"lines"_s);
        if (!line.isNull())
            writer.addLine(line.toText());
    }
    return writer.lines();
}

} // namespace

void captureOutput(WindowControls &controls, const QString &statement)
{
    controls.rtbdbms->clear();
    const std::shared_ptr<Connection> connection = requireConnection();
    connection->Execute(u"dbms_output.disable"_s);
    connection->Execute(u"dbms_output.enable("_s + controls.txtBufferSize->text() + u')');
    controls.showExecutionTime();
    sendNoting(connection, statement, [&] { connection->Execute(statement); });
    const int lines = fetchLines(controls.rtbdbms);
    connection->Execute(u"dbms_output.disable"_s);
    controls.showInformation(outputText(lines));
}
