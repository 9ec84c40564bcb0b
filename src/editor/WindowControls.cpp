#include "editor/WindowControls.h"

#include "connection/session.h"
#include "controls/editor/EditorControl.h"
#include "controls/forms/StatusPanels.h"
#include "controls/forms/WaitingLoop.h"
#include "controls/forms/formControls.h"
#include "controls/forms/measures.h"
#include "controls/forms/selText.h"
#include "controls/grids/ColumnTree.h"
#include "controls/grids/DataGrid.h"
#include "editor/windowLook.h"
#include "platform/systemClock.h"
#include "platform/textForms.h"

#include <QLabel>
#include <QLineEdit>
#include <QShortcut>
#include <QTabWidget>
#include <QToolBar>

using namespace Qt::StringLiterals;

namespace {

constexpr int sideMarginTwips = 100;
constexpr int statusHeightTwips = 420;
constexpr int pageMarginTwips = 50;

QToolBar *makeToolBar(const QString &name, const QString &title, QWidget *parent)
{
    auto *bar = named(new QToolBar(title, parent), name);
    bar->setAccessibleName(title);
    bar->setMovable(false);
    bar->setToolButtonStyle(Qt::ToolButtonIconOnly);
    return bar;
}

QString textOf(const WaitProgress &wait)
{
    if (wait.mayGiveUp)
        return u"The server does not answer: Esc gives the connection up"_s;
    return (wait.isCancelled ? u"Cancelling… %1 s"_s : u"Running… %1 s, Esc cancels"_s)
        .arg(wait.seconds);
}

} // namespace

void WindowControls::create(QWidget *window)
{
    tbrQuerna = makeToolBar(u"tbrQuerna"_s, QObject::tr("SQL commands"), window);
    tbrQuerna->setIconSize(QSize(20, 20));

    txtSQL = named(new EditorControl(window), u"txtSQL"_s);
    txtSQL->setAccessibleName(QObject::tr("SQL statement"));

    tbSql = named(new QTabWidget(window), u"tbSql"_s);
    tbSql->setAccessibleName(QObject::tr("Results"));
    createDataTab();
    createPlanTab();
    createOutputTab();

    sbSql = new StatusPanels(u"sbSql"_s, window);

    // What is left of the window between them is the divider.
    window->setCursor(Qt::SplitVCursor);
    for (QWidget *control : std::initializer_list<QWidget *>{tbrQuerna, txtSQL, tbSql, sbSql})
        control->setCursor(Qt::ArrowCursor);
}

void WindowControls::createDataTab()
{
    auto *page = new QWidget;
    Toolbar1 = makeToolBar(u"Toolbar1"_s, QObject::tr("Result rows"), page);
    Toolbar1->setIconSize(QSize(18, 18));
    SqlDataGrid = named(new DataGrid(page), u"SqlDataGrid"_s);
    tbSql->addTab(page, u"Data"_s);
}

void WindowControls::createPlanTab()
{
    auto *page = new QWidget;
    tvwColumns = named(new ColumnTree(page), u"tvwColumns"_s);
    tbSql->addTab(page, u"Explain Plan"_s);
}

void WindowControls::createOutputTab()
{
    auto *page = new QWidget;
    lblBufferSize = named(new QLabel(QObject::tr("&Buffer size"), page), u"lblBufferSize"_s);
    txtBufferSize = named(new QLineEdit(u"20000"_s, page), u"txtBufferSize"_s);
    lblBufferSize->setBuddy(txtBufferSize);
    txtBufferSize->setAccessibleName(QObject::tr("Buffer size"));
    rtbdbms = named(new OutputPane(page), u"rtbdbms"_s);
    rtbdbms->setAccessibleName(QObject::tr("Server output"));
    rtbdbms->setUndoRedoEnabled(false);
    rtbdbms->setLineWrapMode(QPlainTextEdit::NoWrap);
    rtbdbms->setFont(fixedWidthFont());
    tbSql->addTab(page, u"DBMS Output"_s);
}

void WindowControls::addPaneKeys(QWidget *window) const
{
    QTabWidget *const tabs = tbSql;
    for (int index = 0; index < tabs->count(); ++index) {
        const QKeySequence key(Qt::ALT | static_cast<Qt::Key>(Qt::Key_1 + index));
        tabs->setTabToolTip(
            index, u"%1 (%2)"_s.arg(tabs->tabText(index), key.toString(QKeySequence::NativeText)));
        QObject::connect(new QShortcut(key, window), &QShortcut::activated, tabs,
                         [tabs, index] { tabs->setCurrentIndex(index); });
    }
    const auto changePane = [tabs, editor = txtSQL,
                             panes = QWidgetList{SqlDataGrid, tvwColumns, rtbdbms}] {
        QWidget *const pane = editor->hasFocus() ? panes.at(tabs->currentIndex()) : editor;
        pane->setFocus(Qt::ShortcutFocusReason);
    };
    QObject::connect(new QShortcut(Qt::Key_F4, window), &QShortcut::activated, window, changePane);
}

ResultTab WindowControls::visibleTab() const
{
    return static_cast<ResultTab>(tbSql->currentIndex());
}

void WindowControls::showInformation(const QString &text)
{
    information = text;
    showText(text);
}

void WindowControls::showProgress(const WaitProgress *wait)
{
    showText(wait != nullptr ? textOf(*wait) : information);
    isCancelWanted |= wait != nullptr && wait->isCancelled;
}

void WindowControls::showText(const QString &text) const
{
    const bool hasOpenWork = gConnection && gConnection->hasOpenWork();
    const QString marked = u"● "_s + (text.isEmpty() ? u"Not committed"_s : text);
    sbSql->setPanelText(InformationPanel, hasOpenWork ? marked : text);
    sbSql->repaint();
}

void WindowControls::showExecutionTime() const
{
    sbSql->setPanelText(ExecutionPanel, u"Query executed at "_s + dateTimeToText(localNow()));
}

void WindowControls::place(const PaneLayout &panes, int width, int height)
{
    const int left = pixelsFromTwips(sideMarginTwips);
    const int margin = pixelsFromTwips(pageMarginTwips);
    const int barHeight = tbrQuerna->sizeHint().height();
    tbrQuerna->setGeometry(0, 0, width, barHeight);
    txtSQL->setGeometry(left, barHeight, pixelsFromTwips(panes.width),
                        pixelsFromTwips(panes.editorHeight));
    tbSql->setGeometry(left, pixelsFromTwips(panes.tabTop), pixelsFromTwips(panes.width),
                       pixelsFromTwips(panes.tabHeight));

    const int pageWidth = pixelsFromTwips(panes.pageWidth);
    const int pagingHeight = Toolbar1->sizeHint().height();
    Toolbar1->setGeometry(0, 0, pageWidth, pagingHeight);
    SqlDataGrid->setGeometry(margin, pagingHeight, pageWidth - margin,
                             pixelsFromTwips(panes.gridHeight));

    tvwColumns->setGeometry(margin, margin, pageWidth - margin, pixelsFromTwips(panes.planHeight));

    const int boxHeight = txtBufferSize->sizeHint().height();
    const int labelWidth = lblBufferSize->sizeHint().width();
    lblBufferSize->setGeometry(2 * margin, margin, labelWidth, boxHeight);
    txtBufferSize->setGeometry(labelWidth + 4 * margin, margin, 100, boxHeight);
    rtbdbms->setGeometry(margin, boxHeight + 2 * margin, pageWidth - margin,
                         pixelsFromTwips(panes.outputHeight));

    const int statusHeight = pixelsFromTwips(statusHeightTwips);
    sbSql->setGeometry(left, height - statusHeight - 2, width - 2 * left, statusHeight);
}
