#include "controls/forms/WaitingLoop.h"

#include <QAction>
#include <QApplication>
#include <QKeyEvent>
#include <QMdiSubWindow>
#include <QMouseEvent>
#include <QScrollBar>
#include <QTimer>
#include <QToolButton>

using namespace std::chrono_literals;
using Clock = std::chrono::steady_clock;

namespace {

/// As long as a server may take to notice that it is to stop.
constexpr auto patience = 2s;
constexpr auto progressInterval = 200ms;

std::function<void(const WaitProgress *)> progress;
bool closes = false;

bool endsWaits(const QObject *object)
{
    if (const auto *button = qobject_cast<const QToolButton *>(object))
        object = button->defaultAction();
    return object != nullptr && object->property(WaitingLoop::endsWait).toBool();
}

/// What can be pressed all the same: it scrolls, moves or closes.
bool isUsable(const QWidget *widget)
{
    return qobject_cast<const QScrollBar *>(widget) != nullptr ||
           qobject_cast<const QMdiSubWindow *>(widget) != nullptr ||
           (widget != nullptr && widget->inherits("QMdi::ControllerWidget"));
}

/// Text and what one moves and corrects with. Anything else would be a command.
bool isTyping(const QKeyEvent &key)
{
    constexpr Qt::KeyboardModifiers commands =
        Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier;
    const Qt::KeyboardModifiers held = key.modifiers() & commands;
    if (!key.text().isEmpty() && key.text().front().isPrint())
        return held == Qt::NoModifier || held == (Qt::ControlModifier | Qt::AltModifier);
    return held == Qt::NoModifier && key.key() >= Qt::Key_Tab && key.key() <= Qt::Key_PageDown;
}

} // namespace

void WaitingLoop::install()
{
    setWaitPresenter([](LongWait &wait) { WaitingLoop(wait).run(); });
}

void WaitingLoop::setProgress(std::function<void(const WaitProgress *)> show)
{
    progress = std::move(show);
}

bool WaitingLoop::isClosing()
{
    return closes;
}

WaitingLoop::WaitingLoop(LongWait &wait)
    : m_wait(wait)
    , m_begin(Clock::now() - unnoticedWait)
    , m_modalBefore(QApplication::activeModalWidget())
{
}

void WaitingLoop::run()
{
    QTimer ticks;
    ticks.callOnTimeout(this, &WaitingLoop::showProgress);
    ticks.start(progressInterval);
    showProgress();
    qApp->installEventFilter(this);
    QCoreApplication::processEvents();
    while (!m_wait.isOver())
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    qApp->removeEventFilter(this);
    if (progress)
        progress(nullptr);
    replay();
}

bool WaitingLoop::eventFilter(QObject *watched, QEvent *event)
{
    // A message about what was refused has to be answered.
    const QWidget *modal = QApplication::activeModalWidget();
    if (modal != nullptr && modal != m_modalBefore)
        return false;
    switch (event->type()) {
    case QEvent::ShortcutOverride:
    case QEvent::KeyPress:
        return takeKey(watched, static_cast<QKeyEvent &>(*event));
    case QEvent::InputMethod:
        keep(watched, *event);
        return true;
    case QEvent::Shortcut:
        if (endsWaits(watched))
            end();
        return true;
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonDblClick: {
        const auto *pressed = qobject_cast<const QWidget *>(watched);
        if (pressed == nullptr)
            pressed = QApplication::widgetAt(
                static_cast<const QMouseEvent *>(event)->globalPosition().toPoint());
        if (endsWaits(pressed))
            end();
        return !isUsable(pressed);
    }
    case QEvent::ContextMenu:
    case QEvent::DragEnter:
    case QEvent::Drop:
    case QEvent::TabletPress:
    case QEvent::TouchBegin:
        return true;
    case QEvent::Close:
        event->ignore();
        closes = true;
        m_closing.emplace_back(watched);
        end();
        return true;
    case QEvent::Quit:
        event->ignore();
        return true;
    default:
        return false;
    }
}

/// Before a key goes down it is asked for whether it is a shortcut: those that end the wait are let
/// through, and found again as such.
bool WaitingLoop::takeKey(QObject *watched, QKeyEvent &key)
{
    const bool ends = key.key() == Qt::Key_Escape;
    if (key.type() == QEvent::ShortcutOverride)
        key.setAccepted(ends || isTyping(key));
    else if (ends && !key.isAutoRepeat())
        end();
    else if (isTyping(key))
        keep(watched, key);
    return true;
}

void WaitingLoop::keep(QObject *watched, const QEvent &event)
{
    const auto *widget = qobject_cast<const QWidget *>(watched);
    QWidget *window = widget != nullptr ? widget->window() : QApplication::activeWindow();
    if (window != nullptr)
        m_typed.emplace_back(window, event.clone());
}

void WaitingLoop::end()
{
    if (mayGiveUp())
        return m_wait.giveUp();
    if (!m_hasTried)
        m_firstTry = Clock::now();
    m_hasTried = true;
    m_wait.cancel();
    showProgress();
}

bool WaitingLoop::mayGiveUp() const
{
    return m_hasTried && Clock::now() - m_firstTry >= patience;
}

void WaitingLoop::showProgress() const
{
    if (!progress)
        return;
    const auto waited = std::chrono::duration_cast<std::chrono::seconds>(Clock::now() - m_begin);
    const WaitProgress now{static_cast<int>(waited.count()), m_hasTried, mayGiveUp()};
    progress(&now);
}

/// Behind what is running now, and before the window system is asked for more.
void WaitingLoop::replay()
{
    for (const auto &[window, event] : m_typed) {
        QMetaObject::invokeMethod(
            qApp,
            [window = window, event = event] {
                if (!window)
                    return;
                QWidget *receiver = window->focusWidget();
                QCoreApplication::sendEvent(receiver != nullptr ? receiver : window.data(),
                                            event.get());
            },
            Qt::QueuedConnection);
    }
    for (const QPointer<QObject> &window : m_closing) {
        QMetaObject::invokeMethod(
            qApp,
            [window] {
                closes = false;
                if (window)
                    QMetaObject::invokeMethod(window, "close");
            },
            Qt::QueuedConnection);
    }
}
