#pragma once

#include <QStringList>

/// Names of the drivers that the driver manager knows, in its order.
/// @throws RuntimeError with the driver manager's text
QStringList installedDrivers();

/// The first of them whose name contains @p part, in any letter case; empty when none does.
/// @throws RuntimeError with the driver manager's text
QString installedDriver(QStringView part);

/// Names of the data sources that the driver manager lists, the user's and the system's, in its
/// order.
/// @throws RuntimeError with the driver manager's text
QStringList dataSources();
