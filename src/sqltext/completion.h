#pragma once

#include <QList>
#include <QString>
#include <QStringList>
#include <QStringView>

#include <optional>

class DictionaryNames;

/// What a name that is being typed in a text of SQL can be completed to.

/// A table that a statement names.
struct StatementTable
{
    QString schema; ///< empty for the user's own
    QString table;
    QString alias; ///< the table's name where the statement gives it none
};

/// A name that is being typed. Names are in the dictionary's writing: in capitals, but for those in
/// double quotes.
struct CompletionPlace
{
    qsizetype begin = 0;          ///< where it begins, a 0-based position
    QStringList qualifier;        ///< the names that stand before it, each with a dot behind it
    QList<StatementTable> tables; ///< those of its statement, the nearest to it first
    bool lowerCase = false;       ///< whether it is being typed in small letters
};

/// The name that ends at @p caret, perhaps an empty one. Statements end at a semicolon. What begins
/// with a letter in capitals, or follows such names while it has no letter yet, is not in lower
/// case.
/// @param caret  0-based position, between 0 and the text's length
/// @returns nothing within a comment, a literal or double quotes
std::optional<CompletionPlace> completionPlace(QStringView text, qsizetype caret);

/// What may stand at @p place, in alphabetical order without regard to letter case: columns behind
/// a table or an alias, tables behind a schema, and without a qualifier keywords, schemas,
/// @p user's tables and the columns of the statement's tables.
QStringList completions(const CompletionPlace &place, DictionaryNames &names, const QString &user);

/// @p name as it is put into the text: in small letters where these are being typed, unless it has
/// some already and so is one of those that capitals belong to.
QString completionText(const QString &name, bool lowerCase);
