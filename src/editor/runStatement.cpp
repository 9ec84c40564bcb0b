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
#include "platform/systemClock.h"
#include "platform/textForms.h"
#include "sqltext/ResultPaging.h"
#include "sqltext/dynamicStatements.h"
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
    if (isDmlStatement(statement)) {
        paging.result()->Open(dmlBlock(original), gConnection);
    } else {
        QString query = statement;
        paging.openResult(query, gConnection);
    }
    const double seconds = elapsedSeconds(start, utcTimeOfDay());
    controls.sbSql->setPanelText(ElapsedPanel, elapsedText(seconds));
    controls.SqlDataGrid->setDataSource(paging.result());
    controls.sbSql->setPanelText(RowsPanel, paging.retrievedText());
}

} // namespace

void runStatement(WindowControls &controls, ResultPaging &paging)
{
    QString original = controls.txtSQL->SelText();
    if (original.isEmpty())
        original = controls.txtSQL->Text();
    const HourglassPointer hourglass;
    appendToHistory(original);
    const QString statement = trimBlanks(stripComments(original));
    switch (controls.visibleTab()) {
    case ResultTab::Data:
        return showRows(controls, paging, original, statement);
    case ResultTab::ExplainPlan:
        return explainPlan(controls, statement);
    case ResultTab::DbmsOutput:
        return captureOutput(controls, statement);
    }
}
