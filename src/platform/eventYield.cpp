#include "platform/eventYield.h"

#include <QCoreApplication>

#include <chrono>

void yieldToEvents()
{
    using Clock = std::chrono::steady_clock;
    static Clock::time_point lastAsked;

    QCoreApplication::sendPostedEvents();
    if (Clock::now() - lastAsked < std::chrono::milliseconds(1))
        return;
    QCoreApplication::processEvents();
    lastAsked = Clock::now();
}
