#include "editor/captureOutput.h"

#include "connection/session.h"
#include "dataaccess/Command.h"
#include "editor/WindowControls.h"
#include "sqltext/openWork.h"
#include "sqltext/outcomeTexts.h"

#include <QLineEdit>
#include <QPlainTextEdit>
#include <QScopeGuard>

#include <mutex>

using namespace Qt::StringLiterals;

namespace {

constexpr int longestLine = 255;

/// What was written, to be looked at while lines may be coming: the user may give up the call that
/// brings them.
struct Output
{
    std::mutex mutex;
    QString text;
    int lines = 0;
};

void fetchLines(const std::shared_ptr<Connection> &connection, Output &output)
{
    Command getLine;
    getLine.CommandText = u"dbms_output.get_line"_s;
    getLine.ActiveConnection = connection;
    getLine.appendParameter({u"lines"_s, adVarChar, longestLine, {}});
    getLine.appendParameter({u"status"_s, adInteger, 0, {}});
    while (getLine.parameter(u"status"_s).toInteger() == 0) {
        getLine.Execute();
        const Value &line = getLine.parameter(u"lines"_s);
        if (line.isNull())
            continue;
        const std::lock_guard lock(output.mutex);
        output.text += u"  "_s + line.toText() + u"\r\n"_s;
        ++output.lines;
    }
}

/// The lines before a failure are shown all the same, and all of them at the end: rewriting the
/// pane for every line would cost time quadratic in their number.
/// @returns their number
int showLines(const std::shared_ptr<Connection> &connection, QPlainTextEdit *pane)
{
    const auto output = std::make_shared<Output>();
    const auto show = qScopeGuard([&] {
        const std::lock_guard lock(output->mutex);
        pane->setPlainText(output->text);
    });
    connection->inOneGo([output, connection] { fetchLines(connection, *output); });
    return output->lines;
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
    const int lines = showLines(connection, controls.rtbdbms);
    connection->Execute(u"dbms_output.disable"_s);
    controls.showInformation(outputText(lines));
}
