#pragma once

#include <QStringList>

/// Names of the drivers that the driver manager knows, in its order.
/// @throws RuntimeError with the driver manager's text
QStringList installedDrivers();

/// Names of the data sources that the driver manager lists, the user's and the system's, in its
/// order.
/// @throws RuntimeError with the driver manager's text
QStringList dataSources();
