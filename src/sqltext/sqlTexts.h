#pragma once

#include <QDateTime>
#include <QString>

/// What is made of SQL text. All of it takes and gives plain text.

/// Operations on a text before it is sent, each in time linear in the text.

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

/// The texts that this program makes of a statement and sends in its stead.

// Anonymous blocks that run a statement as dynamic SQL. The statement is a literal there: its
// quotes are doubled and its line ends reduced to line feeds.

/// The block that Run sends for a data-changing or definition statement.
QString dmlBlock(const QString &statement);

/// The block that a script sends for each of its statements.
QString scriptBlock(const QString &statement);

// Texts that ask a server for an execution plan and read it back from PLAN_TABLE.

/// Names one plan: the first 9 characters of the user name, then the date and time.
QString explainStatementId(const QString &userName, const QDateTime &time);

/// Takes out the rows that an earlier plan of the same id has left.
QString deletePlanStatement(const QString &statementId);

/// Asks for the plan of @p statement. Every colon of the statement becomes an ampersand, so that
/// a driver does not take it for a parameter's mark.
QString explainPlanStatement(const QString &statementId, QString statement);

/// Reads the plan as a hierarchy, root first: query_plan, level, id, parent_id, object_name,
/// cardinality, bytes, cost.
QString planQuery(const QString &statementId);

/// What the toolbar's text commands make of a selected text, in time linear in its length.

/// Letters may become two: "ß" in upper case is "SS".
QString upperCase(const QString &text);
QString lowerCase(const QString &text);

/// The letter after a character 0, 9 to 13 or 32, and the first one, in upper case; every other
/// letter in lower case.
QString properCase(const QString &text);

/// Puts "--" before every line, the empty one after a final line end included.
QString commentLines(const QString &text);

/// Takes out every "--", wherever it stands.
QString uncommentText(const QString &text);
