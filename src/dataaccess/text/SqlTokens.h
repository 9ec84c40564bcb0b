#pragma once

#include <QLatin1StringView>
#include <QString>
#include <QStringView>

/// Whether @p character can stand in a word: a name without quotes, a keyword or a number.
bool isWordCharacter(QChar character);

/// Whether @p word is one of @p words, which blanks separate, in any letter case.
bool isOneOf(QStringView word, QLatin1StringView words);

/// One word, number, literal, quoted name or sign of a statement's text.
struct SqlToken
{
    enum Kind { End, Word, Literal, QuotedName, Sign };

    Kind kind = End;
    QStringView text; ///< as written, quotes included

    bool isWord(QStringView word) const;
    /// As the function isOneOf().
    bool isOneOf(QLatin1StringView words) const { return kind == Word && ::isOneOf(text, words); }
    bool isSign(QChar sign) const { return kind == Sign && text.front() == sign; }
    bool isName() const { return kind == Word || kind == QuotedName; }

    /// What a literal or a name stands for: without its quotes, doubled ones single.
    QString value() const;
};

/// Reads a statement's text token by token; comments and white space are passed over. It takes
/// any text: what is not closed ends with the text.
class SqlTokens
{
public:
    explicit SqlTokens(QStringView text);

    /// The next token; one of the kind End when there is none.
    SqlToken next();
    /// The text that has not been read.
    QStringView rest() const { return m_text.sliced(m_position); }

private:
    void skipToToken();
    qsizetype endOfQuoted(QChar quote) const;

    QStringView m_text;
    qsizetype m_position = 0;
};

/// A command text that is nothing but a procedure reference, such as `dbms_output.disable` or
/// `name(1, 'x')`, as `{call …}`; blanks, line ends and a semicolon around it are dropped. Any
/// other text, single-word statements such as `commit` among them, comes back as it is.
QString asProcedureCall(const QString &commandText);

/// Whether @p text has an ODBC escape (`{call …}`, `{fn …}`, `{d '…'}` and so on) outside literals,
/// quoted names and comments.
bool hasOdbcEscape(const QString &text);
