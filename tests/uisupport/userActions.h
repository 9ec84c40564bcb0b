#pragma once

#include <QStringList>

class ProgramFixture;
class QWidget;

/// Clicks the button of that name in @p window near its left end, where option buttons have their
/// mark; to the right of their text they do not answer.
void click(const QWidget &window, const QString &button);

/// Replaces the text of the line edit of that name in @p window, typing.
void enter(const QWidget &window, const QString &lineEdit, const QString &text);

/// Exports the rows with the option of that index to @p path; without a path no file is asked for.
void exportRows(ProgramFixture &program, int option, const QString &path);

/// The controls of @p window, itself among them, that can have the focus and that a screen reader
/// has no name for; those on hidden pages, too.
QStringList namelessControls(QWidget &window);
