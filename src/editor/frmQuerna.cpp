#include "editor/frmQuerna.h"

#include "connection/session.h"
#include "controls/editor/EditorControl.h"
#include "controls/forms/FramePacer.h"
#include "controls/forms/StatusPanels.h"
#include "controls/forms/WaitingLoop.h"
#include "controls/forms/measures.h"
#include "controls/grids/DataGrid.h"
#include "editor/EditorCompletion.h"
#include "editor/EditorEvents.h"
#include "editor/ToolbarCommands.h"
#include "editor/windowLook.h"
#include "platform/RuntimeError.h"
#include "platform/errorTraps.h"
#include "platform/longWait.h"
#include "platform/process.h"
#include "sqltext/ResultPaging.h"
#include "sqltext/openWork.h"
#include "sqltext/outcomeTexts.h"
#include "sqltext/scriptRunner.h"

#include <QCloseEvent>
#include <QMouseEvent>
#include <QPointer>
#include <QToolBar>

#include <atomic>

using namespace Qt::StringLiterals;

namespace {

/// Size that the window was designed in, in twips.
constexpr int designWidth = 15360;
constexpr int designHeight = 9810;

QList<ToolBarButton> pagingButtons()
{
    return {{"Retrieve next set of records"_L1, "next-rows"_L1, {Qt::Key_F7}},
            {"Retrieve all records"_L1, "all-rows"_L1, {Qt::SHIFT | Qt::Key_F7}},
            {"Stop retrieval of all records"_L1, "stop"_L1, {Qt::CTRL | Qt::Key_F7}}};
}

struct ScriptOutcome
{
    QString errors;
    ScriptReport report;
    std::atomic<int> sent = 0; ///< statements, for whoever does not wait for the rest
};

/// Runs a script on @p connection in one go.
std::shared_ptr<ScriptOutcome> outcomeOf(const QString &script,
                                         const std::shared_ptr<Connection> &connection)
{
    auto outcome = std::make_shared<ScriptOutcome>();
    const auto run = [outcome, script, connection] {
        const auto execute = [&](const QString &command, QStringView statement) {
            requireConnection(connection);
            ++outcome->sent;
            sendNoting(connection, statement, [&] { connection->Execute(command); });
        };
        outcome->report = runScript(script, outcome->errors, execute, Connection::isCancelWanted);
    };
    try {
        if (connection && connection->State() == adStateOpen)
            connection->inOneGo(run);
        else
            run();
    } catch (RuntimeError &error) {
        if (outcome->sent > 0)
            error.description += u" The script was at its statement %1."_s.arg(outcome->sent);
        throw;
    }
    return outcome;
}

} // namespace

frmQuerna::frmQuerna(QWidget *parent)
    : QWidget(parent)
{
    setObjectName(u"frmQuerna"_s);
    setAccessibleName(tr("SQL editor"));
    setMouseTracking(true);
    m_controls.create(this);
    m_paging = std::make_shared<ResultPaging>();
    m_rowsPacer = new FramePacer([this] { showAddedRows(); }, this);
    m_commands = std::make_unique<ToolbarCommands>(*this, m_controls, *m_paging);
    m_events =
        std::make_unique<EditorEvents>(*m_controls.txtSQL, *this, [this](const QString &text) {
            m_controls.sbSql->setPanelText(CaretPanel, text);
        });
    new EditorCompletion(*m_controls.txtSQL);
    connectEvents();
    setupPlanColumns(*m_controls.tvwColumns);
    Form_Load();
}

frmQuerna::~frmQuerna()
{
    WaitingLoop::setProgress({});
    // A retrieval that is under way outlives the window by a row; it has nothing to show any more.
    m_paging->setRowsArrived({});
    Form_Terminate();
}

void frmQuerna::connectEvents()
{
    addButtons(*m_controls.tbrQuerna, ToolbarCommands::buttons(),
               [this](int index) { tbrQuerna_ButtonClick(index); });
    addButtons(*m_controls.Toolbar1, pagingButtons(),
               [this](int index) { Toolbar1_ButtonClick(index); });
    m_controls.Toolbar1->actions().last()->setProperty(WaitingLoop::endsWait, true);
    m_controls.addPaneKeys(this);
    m_paging->setRowsArrived([this] { m_rowsPacer->request(); });
    m_paging->setYield(yieldToEvents);
    WaitingLoop::setProgress([this](const WaitProgress *wait) { m_controls.showProgress(wait); });
}

void frmQuerna::Form_Load()
{
    maxRecords = defaultMaxRecords;
    resize(pixelsFromTwips(designWidth), pixelsFromTwips(designHeight));
    setWindowTitle(captionAtLoad(gUserName, gTnsName));
}

void frmQuerna::Form_Activate()
{
    refreshCaption();
    ignoreErrors([this] { m_controls.txtSQL->LoadSyntax(applicationFile(u"T-SQL.bcp"_s)); });
    ignoreErrors([this] { m_controls.txtSQL->setScratchFile(applicationFile(u"dummy.sql"_s)); });
}

void frmQuerna::Form_Terminate() noexcept
{
    if (m_terminated)
        return;
    m_terminated = true;
    m_paging->stop();
    ignoreErrors([] {
        if (gConnection)
            gConnection->Close();
    });
    gConnection.reset();
}

void frmQuerna::setUserPwd(const QString &usr, const QString &passwd, const QString &tnsname)
{
    gUserName = usr;
    gPassword = passwd;
    gTnsName = tnsname;
}

void frmQuerna::setExtUnameTns(QString &extUname, QString &extTns) const
{
    extUname = gUserName;
    extTns = gTnsName;
}

void frmQuerna::setDbc(const std::shared_ptr<Connection> &dbd)
{
    gConnection = dbd;
}

void frmQuerna::setExtDbC(std::shared_ptr<Connection> &dbd) const
{
    dbd = gConnection;
}

void frmQuerna::setMaxRec(qint16 mr)
{
    maxRecords = mr;
}

void frmQuerna::getConnStr(const QString &str)
{
    m_connStr = str;
}

void frmQuerna::execScript(QString &errstr)
{
    const HourglassPointer hourglass;
    EditorControl &editor = *m_controls.txtSQL;
    editor.clearMarks();
    m_controls.showInformation(QString::fromUtf16(runningText));
    const std::shared_ptr<ScriptOutcome> outcome = outcomeOf(editor.Text(), gConnection);
    const ScriptReport &report = outcome->report;
    errstr += outcome->errors;
    for (const ScriptFailure &failure : report.failures)
        editor.markLines(failure.firstLine - 1, failure.lastLine - 1, failure.description);
    m_controls.showInformation(
        scriptText(report.statements, static_cast<qsizetype>(report.failures.size()),
                   report.failures.empty() ? 0 : report.failures.front().firstLine));
}

std::shared_ptr<Recordset> frmQuerna::rsResult() const
{
    return m_paging->result();
}

void frmQuerna::refreshCaption()
{
    setWindowTitle(captionWithText(gUserName, gTnsName, m_controls.txtSQL->Text()));
}

void frmQuerna::showRecordLimit()
{
    const bool limited = maxRecords != 0 && maxRecords <= largestMaxRecords;
    m_controls.sbSql->setPanelText(RowsPanel, limited ? u"Records: "_s + QString::number(maxRecords)
                                                      : u"All records"_s);
}

void frmQuerna::showInformation(const QString &text)
{
    m_controls.showInformation(text);
}

void frmQuerna::tbrQuerna_ButtonClick(int index)
{
    m_commands->execute(index);
}

void frmQuerna::Toolbar1_ButtonClick(int index)
{
    const std::shared_ptr<ResultPaging> paging = m_paging;
    const QPointer<frmQuerna> window(this); // it may be closed while all rows are retrieved
    reportErrors([&] {
        switch (index) {
        case 1:
            return paging->retrieveNext();
        case 2:
            if (!paging->rowsText().isEmpty())
                m_controls.showInformation(u"Retrieving… Ctrl+F7 stops"_s);
            return paging->retrieveAll();
        case 3:
            return paging->stop();
        default:
            return;
        }
    });
    if (!window)
        return;
    if (const QString text = paging->rowsText(); !text.isEmpty() && index != 3)
        m_controls.showInformation(text);
    m_rowsPacer->flush();
}

void frmQuerna::showAddedRows()
{
    m_controls.sbSql->setPanelText(RowsPanel, m_paging->retrievedText());
    m_controls.SqlDataGrid->showAddedRows();
}

void frmQuerna::closeEvent(QCloseEvent *event)
{
    Form_Terminate();
    event->accept();
}

void frmQuerna::focusInEvent(QFocusEvent *event)
{
    QWidget::focusInEvent(event);
    refreshCaption();
    m_controls.txtSQL->setFocus(event->reason());
}

void frmQuerna::resizeEvent(QResizeEvent *event)
{
    QWidget::resizeEvent(event);
    if (twipsFromPixels(height()) >= smallestLaidOutWindow &&
        twipsFromPixels(width()) >= smallestLaidOutWindow)
        layoutPanes();
}

void frmQuerna::layoutPanes()
{
    m_splitRatio = boundedSplitRatio(m_splitRatio);
    WindowMeasures window;
    window.innerWidth = twipsFromPixels(width());
    window.innerHeight = twipsFromPixels(height());
    window.toolbarHeight = twipsFromPixels(m_controls.tbrQuerna->sizeHint().height());
    m_controls.place(::layoutPanes(m_splitRatio, window), width(), height());
}

/// What a toolbar or the status bar leaves unused comes here too, and moves nothing.
void frmQuerna::mousePressEvent(QMouseEvent *event)
{
    m_splitDragging = childAt(event->position().toPoint()) == nullptr;
}

void frmQuerna::mouseMoveEvent(QMouseEvent *event)
{
    if (!m_splitDragging)
        return;
    m_splitRatio = static_cast<float>(event->position().y() / height());
    layoutPanes();
}

void frmQuerna::mouseReleaseEvent(QMouseEvent *)
{
    m_splitDragging = false;
}
