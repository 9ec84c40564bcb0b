#include "startup/announceWhenShown.h"

#include <QApplication>
#include <QEvent>
#include <QTimer>
#include <QWidget>

#include <cstdio>

namespace {

bool (*awaited)(const QWidget &) = nullptr;

class Announcer : public QObject
{
public:
    using QObject::QObject;

    bool eventFilter(QObject *watched, QEvent *event) override
    {
        if (event->type() != QEvent::Paint || !watched->isWidgetType() ||
            !awaited(*static_cast<QWidget *>(watched)))
            return false;
        qApp->removeEventFilter(this);
        // Timers without delay are served when the queue is empty.
        QTimer::singleShot(0, [] {
            std::puts("shown");
            std::fflush(stdout);
        });
        return false;
    }
};

void watchApplication()
{
    qApp->installEventFilter(new Announcer(qApp));
}

} // namespace

Q_COREAPP_STARTUP_FUNCTION(watchApplication)

void announceWhenShown(bool (*isAwaited)(const QWidget &widget))
{
    awaited = isAwaited;
}
