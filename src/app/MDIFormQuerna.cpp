#include "app/MDIFormQuerna.h"

#include "app/FrameCommands.h"
#include "app/FrameView.h"
#include "app/RecoveryBar.h"
#include "app/TextKeeper.h"
#include "connection/frmQuernaLogin.h"
#include "connection/login.h"
#include "connection/session.h"
#include "controls/editor/EditorControl.h"
#include "controls/forms/icons.h"
#include "dataaccess/providers/providers.h"
#include "dataaccess/sandbox/Sandbox.h"
#include "editor/frmQuerna.h"
#include "editor/windowLook.h"
#include "platform/errorTraps.h"
#include "platform/process.h"
#include "platform/settings.h"

#include <QAction>
#include <QCloseEvent>
#include <QCoreApplication>
#include <QDeadlineTimer>
#include <QLabel>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QMenu>
#include <QMenuBar>
#include <QThread>
#include <QVBoxLayout>
#include <QWindow>

#include <chrono>
#include <cstdio>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace {

const QString editorRegistryKey = u"Software\\BCDLL\\CurrentVersion"_s;

/// Decimal text of the registry handle of the local machine's hive, as the editor control's area
/// holds it.
const QString localMachineHandle = u"-2147483646"_s;

const QString practiceConnectionString =
    u"Provider=OrbekSandbox;Data Source=SANDBOX;User ID=scott;Password=tiger;"_s;

/// The editor window that @p window holds; null when it holds something else or is none.
frmQuerna *editorIn(const QMdiSubWindow *window)
{
    return window == nullptr ? nullptr : qobject_cast<frmQuerna *>(window->widget());
}

/// Prepares the editor control's registry area.
void writeRegistry()
{
    CreateRegKey(editorRegistryKey, RegistryHive::LocalMachine);
    SetRegValue(editorRegistryKey, applicationFolder() + u"\\Defaults"_s, localMachineHandle);
}

/// Sees to it that a window is on the screen, for work follows that lets no event through. A
/// desktop takes a moment to give a new window its place; one that shows nothing is not waited for.
void showAtOnce(const QWidget &window)
{
    const QDeadlineTimer longest(500ms);
    do {
        QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
        QThread::msleep(5);
    } while (!window.windowHandle()->isExposed() && !longest.hasExpired());
    QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
}

/// Shows in the middle of the empty frame what a connection is being waited for.
class FrameNotice
{
public:
    explicit FrameNotice(QWidget &area)
        : m_label(&area)
    {
        m_label.setObjectName(u"lblNotice"_s);
        m_label.setAlignment(Qt::AlignCenter);
        m_label.setAutoFillBackground(true);
        m_label.setMargin(24);
        m_label.hide();
        setProviderProgress([this, &area](const QString &text) {
            m_label.setText(text);
            m_label.adjustSize();
            m_label.move(area.rect().center() - m_label.rect().center());
            m_label.show();
            showAtOnce(*area.window());
        });
    }
    ~FrameNotice() { setProviderProgress({}); }
    FrameNotice(const FrameNotice &) = delete;
    FrameNotice &operator=(const FrameNotice &) = delete;

private:
    QLabel m_label;
};

} // namespace

MDIFormQuerna::MDIFormQuerna(QWidget *parent)
    : QMainWindow(parent)
    , m_area(new QMdiArea(this))
    , m_commands(std::make_unique<FrameCommands>(*this))
{
    setObjectName(u"MDIFormQuerna"_s);
    setWindowTitle(u"Orbek SQL Editor"_s);
    setWindowIcon(themedIcon(u"querna"_s));
    m_area->setObjectName(u"mdiArea"_s);
    m_area->setHorizontalScrollBarPolicy(Qt::ScrollBarAsNeeded);
    m_area->setVerticalScrollBarPolicy(Qt::ScrollBarAsNeeded);
    m_area->setOption(QMdiArea::DontMaximizeSubWindowOnActivation);
    setCentralWidget(m_area);
    if (hasSandbox())
        offerPractice();
    m_recovery = new RecoveryBar(this);
    addToolBar(m_recovery);
    m_commands->addMenus(*menuBar());
    connect(m_area, &QMdiArea::subWindowActivated, this, [](QMdiSubWindow *window) {
        if (frmQuerna *editor = editorIn(window))
            editor->Form_Activate();
    });
    m_view = std::make_unique<FrameView>(*this);
}

MDIFormQuerna::~MDIFormQuerna() = default;

/// Shows in the empty frame the way to a database for who has none.
void MDIFormQuerna::offerPractice()
{
    auto *area = new QVBoxLayout(m_area->viewport());
    m_practice = new QLabel(tr("No database at hand? <a href='#'>Open the practice database</a>"));
    m_practice->setObjectName(u"lblPractice"_s);
    m_practice->setTextInteractionFlags(Qt::TextBrowserInteraction);
    m_practice->setAutoFillBackground(true);
    m_practice->setMargin(12);
    area->addWidget(m_practice, 0, Qt::AlignHCenter | Qt::AlignBottom); // beside the login dialog
    connect(m_practice, &QLabel::linkActivated, this, [this] {
        reportErrors([this] {
            openCommandLine(practiceConnectionString);
            if (m_login)
                m_login->close();
            showEditorWindow();
        });
    });
}

void MDIFormQuerna::Form_Load(const QString &commandLine)
{
    try {
        writeRegistry();
        m_view->show();
        const QString connectionString = cleanedCommandLine(commandLine);
        if (connectionString.isEmpty()) {
            showLogin();
            return;
        }
        openCommandLine(connectionString);
    } catch (...) { // no window says a word about it
        std::fprintf(stderr, "Querna: %s\n", qPrintable(currentRuntimeError().description));
        endProgram(1);
        return;
    }
    ignoreErrors([this] { showEditorWindow(); });
}

void MDIFormQuerna::openCommandLine(const QString &connectionString)
{
    gConnectString = connectionString;
    gConnection = std::make_shared<Connection>();
    const FrameNotice notice(*m_area);
    gConnection->Open(gConnectString);
    gConnection->BeginTrans();
    readLoginNames(gConnectString, gUserName, gTnsName);
}

frmQuerna *MDIFormQuerna::activeEditor() const
{
    frmQuerna *editor = editorIn(m_area->activeSubWindow());
    return editor != nullptr && editor->objectName() == "frmQuerna"_L1 ? editor : nullptr;
}

void MDIFormQuerna::showLogin()
{
    if (!m_login) {
        m_login = new frmQuernaLogin(this);
        connect(m_login, &frmQuernaLogin::loggedOn, this, &MDIFormQuerna::showEditorWindow);
    }
    m_login->show();
    m_login->raise();
    m_login->activateWindow();
}

frmQuerna *MDIFormQuerna::editorWindow()
{
    if (!m_editor) {
        m_editor = new frmQuerna;
        if (m_practice != nullptr) {
            m_practice->hide();
            connect(m_editor, &QObject::destroyed, m_practice, &QWidget::show);
        }
        addChildWindow(*m_editor);
        m_view->follow(*m_editor->txtSQL());
        connect(m_editor->txtSQL(), &EditorControl::fileDropped, m_editor,
                [this](const QString &path) { m_commands->openDropped(*m_editor, path); });
        keepText(*m_editor->txtSQL());
    }
    return m_editor;
}

/// Keeps the text against a sudden end, and offers what sudden ends have left.
void MDIFormQuerna::keepText(EditorControl &editor)
{
    auto *keeper = new TextKeeper(editor);
    connect(keeper, &QObject::destroyed, m_recovery, &QWidget::hide);
    setLastWork([kept = QPointer(keeper)] { delete kept.data(); });
    m_recovery->offerLostTexts([&editor, keeper](const QString &text) {
        editor.setSelStart(editor.textLength());
        editor.InsertText(editor.textLength() == 0 ? text : u"\r\n"_s + text);
        editor.setFocus();
        keeper->keepNow();
    });
}

/// The child window that holds @p editor, shown once in the frame's whole room; later it is as the
/// user has left it.
void MDIFormQuerna::addChildWindow(frmQuerna &editor)
{
    const QSize designSize = editor.size();
    QMdiSubWindow *window = m_area->addSubWindow(&editor);
    window->setObjectName(u"editorSubWindow"_s);
    window->setAttribute(Qt::WA_DeleteOnClose);
    window->setWindowIcon(windowIcon());
    window->resize(designSize);
    // A click on what takes no focus leaves it where it is.
    window->setFocusPolicy(Qt::NoFocus);
    // Closing has two keys by default, and one of them is the Exit command's.
    for (QAction *action : window->systemMenu()->actions()) {
        if (!action->shortcut().isEmpty())
            action->setShortcut(Qt::CTRL | Qt::Key_F4);
    }
    connect(&editor, &QWidget::windowTitleChanged, window,
            [window](const QString &caption) { window->setWindowTitle(titleOf(caption)); });
    window->showMaximized();
}

void MDIFormQuerna::showEditorWindow()
{
    frmQuerna *editor = editorWindow();
    editor->refreshCaption();
    const bool isConnected = gConnection && gConnection->State() == adStateOpen;
    editor->showInformation(isConnected ? gConnection->hint() : u"Not connected"_s);
    m_area->setActiveSubWindow(static_cast<QMdiSubWindow *>(editor->parentWidget()));
    editor->setFocus();
}

void MDIFormQuerna::changeEvent(QEvent *event)
{
    QMainWindow::changeEvent(event);
    if (event->type() == QEvent::ActivationChange && isActiveWindow() && m_editor)
        m_editor->refreshCaption();
}

void MDIFormQuerna::closeEvent(QCloseEvent *event)
{
    m_area->closeAllSubWindows();
    event->accept();
}
