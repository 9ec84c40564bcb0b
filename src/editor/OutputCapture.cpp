#include "editor/OutputCapture.h"

#include "connection/session.h"
#include "dataaccess/Command.h"

#include <QPlainTextEdit>

#include <utility>

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

    void addLine(const QString &line) { m_text += u"  "_s + line + u"\r\n"_s; }

private:
    QPlainTextEdit *m_pane;
    QString m_text;
};

} // namespace

OutputCapture::OutputCapture(QPlainTextEdit *pane, std::function<void()> showExecutionTime)
    : m_pane(pane)
    , m_showExecutionTime(std::move(showExecutionTime))
{
}

void OutputCapture::run(const QString &statement, const QString &bufferSize)
{
    m_pane->clear();
    const std::shared_ptr<Connection> connection = requireConnection();
    connection->Execute(u"dbms_output.disable"_s);
    connection->Execute(u"dbms_output.enable("_s + bufferSize + u')');
    m_showExecutionTime();
    connection->Execute(statement);
    fetchLines();
    connection->Execute(u"dbms_output.disable"_s);
}

void OutputCapture::fetchLines()
{
    Command getLine;
    getLine.CommandText = u"dbms_output.get_line"_s;
    getLine.ActiveConnection = requireConnection();
    getLine.appendParameter({u"lines"_s, adVarChar, longestLine, {}});
    getLine.appendParameter({u"status"_s, adInteger, 0, {}});

    PaneWriter writer(m_pane);
    while (getLine.parameter(u"status"_s).toInteger() == 0) {
        getLine.Execute();
        const Value &line = getLine.parameter(u"lines"_s);
        if (!line.isNull())
            writer.addLine(line.toText());
    }
}
