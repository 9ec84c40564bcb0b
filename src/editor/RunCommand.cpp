#include "editor/RunCommand.h"

#include "connection/session.h"
#include "controls/DataGrid.h"
#include "controls/EditorControl.h"
#include "controls/StatusPanels.h"
#include "controls/mousePointer.h"
#include "dataaccess/Recordset.h"
#include "editor/ExplainPlan.h"
#include "editor/OutputCapture.h"
#include "editor/WindowControls.h"
#include "history/historyFile.h"
#include "platform/errorTraps.h"
#include "platform/systemClock.h"
#include "platform/textForms.h"
#include "sqltext/ResultPaging.h"
#include "sqltext/dynamicStatements.h"
#include "sqltext/sqlFilters.h"

#include <QLineEdit>

#include <utility>

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

} // namespace

RunCommand::RunCommand(WindowControls &controls, ResultPaging &paging,
                       std::function<void()> refreshCaption)
    : m_controls(controls)
    , m_paging(paging)
    , m_refreshCaption(std::move(refreshCaption))
    , m_plan(std::make_unique<ExplainPlan>(controls.tvwColumns, [this] { showExecutionTime(); }))
    , m_output(std::make_unique<OutputCapture>(controls.rtbdbms, [this] { showExecutionTime(); }))
{
    m_plan->setupPlanColumns();
}

RunCommand::~RunCommand() = default;

void RunCommand::run()
{
    m_refreshCaption();
    QString statement = m_controls.txtSQL->SelText();
    if (statement.isEmpty())
        statement = m_controls.txtSQL->Text();
    const HourglassPointer hourglass;
    reportErrors([&] { runStatement(statement); });
}

void RunCommand::runStatement(const QString &original)
{
    appendToHistory(original);
    const QString statement = trimBlanks(stripComments(original));
    switch (m_controls.visibleTab()) {
    case ResultTab::Data:
        return runData(original, statement);
    case ResultTab::ExplainPlan:
        return m_plan->explain(statement);
    case ResultTab::DbmsOutput:
        return m_output->run(statement, m_controls.txtBufferSize->text());
    }
}

void RunCommand::runData(const QString &original, const QString &statement)
{
    m_paging.setResult(makeResult());
    const QTime start = utcTimeOfDay();
    showExecutionTime();
    if (isDmlStatement(statement)) {
        m_paging.result()->Open(dmlBlock(original), gConnection);
    } else {
        QString query = statement;
        m_paging.openResult(query, gConnection);
    }
    const double seconds = elapsedSeconds(start, utcTimeOfDay());
    m_controls.sbSql->setPanelText(ElapsedPanel, elapsedText(seconds));
    m_controls.SqlDataGrid->setDataSource(m_paging.result());
    m_controls.sbSql->setPanelText(RowsPanel, m_paging.retrievedText());
}

void RunCommand::showExecutionTime()
{
    m_controls.sbSql->setPanelText(ExecutionPanel,
                                   u"Query executed at "_s + dateTimeToText(localNow()));
}
