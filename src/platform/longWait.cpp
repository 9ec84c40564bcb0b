#include "platform/longWait.h"

#include <QCoreApplication>
#include <QScopeGuard>

#include <utility>

namespace {

WaitPresenter presenter;
bool isShown = false;
std::chrono::steady_clock::time_point turn;

void noteTurn()
{
    turn = std::chrono::steady_clock::now();
}

} // namespace

void setWaitPresenter(WaitPresenter newPresenter)
{
    presenter = std::move(newPresenter);
}

bool hasWaitPresenter()
{
    return presenter != nullptr;
}

void showWait(LongWait &wait)
{
    isShown = true;
    const auto end = qScopeGuard([] {
        isShown = false;
        noteTurn();
    });
    presenter(wait);
}

bool isWaiting()
{
    return isShown;
}

std::chrono::steady_clock::time_point lastTurn()
{
    return turn;
}

void yieldToEvents()
{
    QCoreApplication::sendPostedEvents();
    if (std::chrono::steady_clock::now() - turn < std::chrono::milliseconds(1))
        return;
    QCoreApplication::processEvents();
    noteTurn();
}
