#include "platform/eventYield.h"

#include <QCoreApplication>

void yieldToEvents()
{
    QCoreApplication::processEvents();
}
