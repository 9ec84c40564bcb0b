#include "editor/runStatement.h"

#include "connection/session.h"
#include "controls/editor/EditorControl.h"
#include "controls/forms/StatusPanels.h"
#include "controls/forms/mousePointer.h"
#include "controls/grids/DataGrid.h"
#include "dataaccess/Recordset.h"
#include "editor/WindowControls.h"
#include "editor/captureOutput.h"
#include "editor/explainPlan.h"
#include "history/historyFile.h"
#include "platform/errorTraps.h"
#include "platform/systemClock.h"
#include "platform/textForms.h"
#include "sqltext/ResultPaging.h"
#include "sqltext/dynamicStatements.h"
#include "sqltext/openWork.h"
#include "sqltext/outcomeTexts.h"
#include "sqltext/sqlFilters.h"

using namespace Qt::StringLiterals;

namespace {

constexpr int resultCacheSize = 25;

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
