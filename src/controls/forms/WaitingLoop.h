#pragma once

#include "platform/longWait.h"

#include <QCursor>
#include <QGuiApplication>
#include <QObject>
#include <QPointer>

#include <chrono>
#include <functional>
#include <memory>
#include <utility>
#include <vector>

class QKeyEvent;
class QWidget;

/// How far a wait for the server has got, for whoever tells the user.
struct WaitProgress
{
    int seconds = 0;
    bool isCancelled = false; ///< the user has asked for the end
    bool mayGiveUp = false;   ///< asking once more leaves the server to itself
};

/// Lets the windows paint, move and scroll while a call of a driver is under way, and nothing
/// begin: what is typed meanwhile is kept for later, clicks are dropped. Escape, and whatever has
/// the property endsWait, asks for the call to end, and a moment later gives it up. So does closing
/// a window, which is then closed when what runs has ended.
class WaitingLoop : public QObject
{
    Q_OBJECT
public:
    static constexpr const char *endsWait = "endsWait";

    /// Has every wait shown in this way from now on.
    static void install();
    /// @param show  called several times a second during a wait, and with null when it is over; an
    ///              empty function for nobody
    static void setProgress(std::function<void(const WaitProgress *)> show);
    /// Whether a window is about to be closed because a wait was ended by closing it: nobody wants
    /// to be told any more how that went.
    static bool isClosing();

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    explicit WaitingLoop(LongWait &wait);
    void run();
    bool takeKey(QObject *watched, QKeyEvent &key);
    void keep(QObject *watched, const QEvent &event);
    void end();
    bool mayGiveUp() const;
    void showProgress() const;
    void replay();

    LongWait &m_wait;
    const std::chrono::steady_clock::time_point m_begin;
    std::chrono::steady_clock::time_point m_firstTry; ///< to end it
    bool m_hasTried = false;
    const QWidget *const m_modalBefore;
    std::vector<QPointer<QObject>> m_closing;
    /// What was typed, and into which window.
    std::vector<std::pair<QPointer<QWidget>, std::shared_ptr<QEvent>>> m_typed;
};

/// Shows the hourglass over every window of the program for as long as it lives, then the shape
/// that was there before, also when the work in between fails.
class HourglassPointer
{
public:
    HourglassPointer() { QGuiApplication::setOverrideCursor(Qt::WaitCursor); }
    ~HourglassPointer() { QGuiApplication::restoreOverrideCursor(); }
    HourglassPointer(const HourglassPointer &) = delete;
    HourglassPointer &operator=(const HourglassPointer &) = delete;
};
