#pragma once

#include <QString>

/// Captions of the editor window. User and database names are shown in capitals.

/// `SCOTT@ORCL - SQL Editor`, before there is a text to name.
QString captionAtLoad(const QString &userName, const QString &tnsName);

/// The same with the beginning of the text: its first 30 characters (UTF-16 units), blanks at its
/// ends left out, and always an ellipsis.
QString captionWithText(const QString &userName, const QString &tnsName, const QString &text);

/// @p caption as the title of a window: what has no picture, such as a line end, is a blank, and
/// `[*]`, which the toolkit takes as a mark of its own, is shown as it stands.
QString titleOf(QString caption);
