#pragma once

#include <QItemSelection>
#include <QPlainTextEdit>
#include <QString>

#include <functional>
#include <vector>

class EditorControl;
class QKeyEvent;
class QWidget;

/// The selected text of any control that has one: text boxes, combo boxes, the grids, the tree,
/// output panes. A control without a selection, or without text, has an empty one.

QString selText(const QWidget *control);

/// Replaces the selected text, or inserts at the caret. Controls that show and do not edit, and
/// read-only ones, stay as they are.
void setSelText(QWidget *control, const QString &text);

/// The editor control that has the keyboard focus; null when the focus is elsewhere.
EditorControl *focusedEditor();

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

/// A text box of many lines for what a server prints. Copying gives the same text by key as by
/// menu, with carriage return + line feed; the key for selecting all is left to the menu.
class OutputPane : public QPlainTextEdit
{
    Q_OBJECT
public:
    using QPlainTextEdit::QPlainTextEdit;

protected:
    bool event(QEvent *event) override;
    QMimeData *createMimeDataFromSelection() const override;
};
