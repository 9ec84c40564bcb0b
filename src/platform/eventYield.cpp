#include "platform/eventYield.h"

#include "platform/longWait.h"

#include <QCoreApplication>

#include <chrono>

void yieldToEvents()
{
    QCoreApplication::sendPostedEvents();
    if (std::chrono::steady_clock::now() - lastTurn() < std::chrono::milliseconds(1))
        return;
    QCoreApplication::processEvents();
    noteTurn();
}
