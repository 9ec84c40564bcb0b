#pragma once

#include <QString>

/// Anonymous blocks that run a statement as dynamic SQL. The statement is a literal there: its
/// quotes are doubled and its line ends reduced to line feeds.

/// The block that Run sends for a data-changing or definition statement.
QString dmlBlock(const QString &statement);

/// The block that a script sends for each of its statements.
QString scriptBlock(const QString &statement);
