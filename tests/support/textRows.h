#pragma once

#include <QString>

#include <functional>

/// Functions that make one text of another, tested by tables of texts.
using TextFunction = std::function<QString(const QString &)>;

/// Declares the columns of such a test.
void addTextColumns();

/// Adds the rows of @p table, which `|` separates: `text→expected`. A row that is a text alone
/// shares what the next one expects. An error is expected as "error 13". @p name is of the
/// function.
void addTextRows(const char *name, const TextFunction &function, const QString &table);

/// Compares what the row's function makes with what is expected.
void compareTextRow();
