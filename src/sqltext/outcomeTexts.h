#pragma once

#include <QString>

struct RuntimeError;

/// What the information panel says of commands that run or have ended.

inline constexpr char16_t runningText[] = u"Running…";

/// Of a statement that gave no rows.
/// @param rowsChanged  -1 when nobody told
QString statementText(const QString &statement, qint64 rowsChanged);
/// Of a query. @param hasMore  whether rows wait on the server
QString rowsText(qint64 rows, bool hasMore);
/// Of a script. @param firstLine  of the first statement that failed, counted from 1
QString scriptText(qsizetype statements, qsizetype failed, int firstLine);
QString planText(int steps);
QString outputText(int lines);
/// Of a command that failed while a connection was open: that it was cancelled, or the first line
/// of the reason.
QString failureText(const RuntimeError &error);

/// The line of @p statement, counted from 1, that the server's description of a failure names; 0
/// when it names none.
/// @param isWrapped  whether the statement was sent as a literal in a block of ours: a line of the
///                   block is none of the statement's then
int failedLine(const QString &description, const QString &statement, bool isWrapped);
