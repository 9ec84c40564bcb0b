#pragma once

#include <QStringList>

/// Names of the drivers that the driver manager knows, in its order.
/// @throws RuntimeError with the driver manager's text
QStringList installedDrivers();
