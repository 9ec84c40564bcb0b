#pragma once

#include <QBasicTimer>
#include <QObject>

#include <chrono>
#include <functional>

/// Gathers requests that come far more often than a screen can show them, and does the work they
/// ask for once a frame; a frame is longer than a screen's where the work itself takes long.
class FramePacer : public QObject
{
    Q_OBJECT
public:
    /// @param work  done once for all requests of a frame; it may request again
    FramePacer(std::function<void()> work, QObject *parent);

    /// Asks for the work to be done within a frame. Costs a comparison while that is pending.
    void request()
    {
        if (!m_timer.isActive())
            start();
    }
    /// Does now what was asked for, if anything was.
    void flush();

protected:
    void timerEvent(QTimerEvent *event) override;

private:
    void start();

    std::function<void()> m_work;
    QBasicTimer m_timer;
    std::chrono::milliseconds m_frame{16};
};
