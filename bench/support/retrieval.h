#pragma once

#include <QString>

#include <memory>

class Connection;
class Recordset;

/// Rows that are asked for in one call of the driver, by both sides.
inline constexpr int rowsPerBlock = 100;

/// Copies every row of @p query as the result grid does it, without a grid.
std::unique_ptr<Recordset> retrieveAll(const std::shared_ptr<Connection> &connection,
                                       const QString &query);
/// The same on a connection of its own.
std::unique_ptr<Recordset> retrieveAll(const QString &connectionString, const QString &query);
