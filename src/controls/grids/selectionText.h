#pragma once

#include <QItemSelection>
#include <QString>

#include <functional>
#include <vector>

class QKeyEvent;

/// Appends the texts of one row's cells from a first to a last column, separated by tabs.
using AppendCells = std::function<void(int row, int firstColumn, int lastColumn, QString &text)>;

/// The cells of a selection as text that a spreadsheet understands: rows from top to bottom with
/// carriage return + line feed between them, cells separated by tabs.
///
/// Rows and columns without any selected cell are left out; in the others a cell that is not
/// selected is an empty one, so that what stood below each other stays so. The cost depends on the
/// cells of the result, not on how they were selected.
QString selectionText(const QItemSelection &selection, const AppendCells &appendCells);

/// The rows, or columns, that hold a selected cell, in ascending order.
std::vector<int> selectedRows(const QItemSelection &selection);
std::vector<int> selectedColumns(const QItemSelection &selection);

/// Puts a text on the clipboard, unless it is empty.
void copyToClipboard(const QString &text);

/// Copies what @p selText gives, if @p event is the key for that; a failure is shown.
/// @returns whether it was the key
bool copyOnKey(const QKeyEvent &event, const std::function<QString()> &selText);
