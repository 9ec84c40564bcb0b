#include "editor/ToolbarCommands.h"

#include "connection/session.h"
#include "controls/editor/EditorControl.h"
#include "controls/forms/StatusPanels.h"
#include "controls/forms/WaitingLoop.h"
#include "controls/grids/DataGrid.h"
#include "dataaccess/Command.h"
#include "dataaccess/Recordset.h"
#include "editor/WindowControls.h"
#include "history/historyFile.h"
#include "platform/errorTraps.h"
#include "platform/systemClock.h"
#include "platform/textForms.h"
#include "sqltext/ResultPaging.h"
#include "sqltext/openWork.h"
#include "sqltext/outcomeTexts.h"
#include "sqltext/sqlTexts.h"

#include <QLineEdit>
#include <QPlainTextEdit>
#include <QScopeGuard>

#include <mutex>

using namespace Qt::StringLiterals;

namespace {

constexpr int resultCacheSize = 25;
constexpr int longestLine = 255; ///< of the server's output

std::shared_ptr<Recordset> makeResult()
{
    auto result = std::make_shared<Recordset>();
    result->setCursorLocation(adUseClient);
    result->setCacheSize(resultCacheSize);
    return result;
}

void showRows(WindowControls &controls, ResultPaging &paging, const QString &original,
              const QString &statement)
{
    paging.setResult(makeResult());
    const QTime start = utcTimeOfDay();
    controls.showExecutionTime();
    const bool isWrapped = isDmlStatement(statement);
    const qint64 rowsChanged = sendNoting(gConnection, statement, [&] {
        if (isWrapped) {
            paging.result()->Open(dmlBlock(original), gConnection);
        } else {
            QString query = statement;
            paging.openResult(query, gConnection);
        }
    });
    const double seconds = elapsedSeconds(start, utcTimeOfDay());
    controls.sbSql->setPanelText(ElapsedPanel, elapsedText(seconds));
    controls.SqlDataGrid->setDataSource(paging.result());
    controls.sbSql->setPanelText(RowsPanel, paging.retrievedText());
    const bool hasRows = !isWrapped && !statement.isEmpty() && paging.isQuery();
    controls.showInformation(hasRows ? paging.rowsText() : statementText(statement, rowsChanged));
}

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

/// Runs a statement with the server's output buffer on, as large as the window's box says, and
/// shows every line that it wrote. A failure leaves the lines that came before it in the pane, and
/// the server's buffer on until the next capture.
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

void run(WindowControls &controls, ResultPaging &paging, const QString &original,
         const QString &statement)
{
    switch (controls.visibleTab()) {
    case ResultTab::Data:
        return showRows(controls, paging, original, statement);
    case ResultTab::ExplainPlan:
        return explainPlan(controls, statement);
    case ResultTab::DbmsOutput:
        return captureOutput(controls, statement);
    }
}

/// Marks the line that the server has found fault with, where it names one.
/// @param begin  where the text that was run stands in the editor
void markFailure(EditorControl &editor, int begin, const QString &statement, bool isWrapped,
                 const QString &description)
{
    const int line = failedLine(description, statement, isWrapped);
    if (line == 0)
        return;
    const int place = editor.lineFromCharacter(begin) + line - 1;
    editor.markLines(place, place, description);
}

} // namespace

void runStatement(WindowControls &controls, ResultPaging &paging)
{
    EditorControl &editor = *controls.txtSQL;
    editor.clearMarks();
    QString original = editor.SelText();
    const int begin = original.isEmpty() ? 0 : editor.SelStart();
    if (original.isEmpty())
        original = editor.Text();
    const HourglassPointer hourglass;
    appendToHistory(original);
    const QString statement = trimBlanks(stripComments(original));
    controls.showInformation(QString::fromUtf16(runningText));
    controls.isCancelWanted = false;
    try {
        run(controls, paging, original, statement);
        if (controls.isCancelWanted)
            controls.showInformation(u"Cancelled, may be incomplete. "_s + controls.information);
    } catch (...) {
        const bool isWrapped =
            controls.visibleTab() == ResultTab::Data && isDmlStatement(statement);
        markFailure(editor, begin, isWrapped ? original : statement, isWrapped,
                    currentRuntimeError().description);
        throw;
    }
}
