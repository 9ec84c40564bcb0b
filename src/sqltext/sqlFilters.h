#pragma once

#include <QString>

/// Operations on SQL text before it is sent: plain text in, plain text out, each in time linear in
/// the text.

/// Takes `--` comments out. A `--` is kept inside a block comment, where the n-th `/*` is paired
/// with the n-th `*/` of the text, and between two quotes that follow each other on one line other
/// than the first; the characters between the first of those quotes and the `--` then appear twice
/// in the result. The line end of a comment is dropped, except for the line feed of a carriage
/// return and line feed pair.
QString stripComments(const QString &text);

/// Whether the first six characters, not counting blanks and line ends, are CREATE, INSERT, UPDATE
/// or DELETE in any letter case.
bool isDmlStatement(const QString &text);

/// The text with every single quote doubled, so that it can stand in a quoted SQL literal.
QString doubleQuotes(const QString &text);

/// The text with every carriage return and line feed pair reduced to its line feed; lone carriage
/// returns stay.
QString lineFeedsOnly(const QString &text);

/// The first word behind the word @p keyword, which is given in upper case and found in any letter
/// case. Words end at a tab, carriage return, line feed, blank, `-`, `/`, `*` or `(`; one that ends
/// with the text is not found. An empty text when there is none.
QString wordAfter(const QString &text, const QString &keyword);
