#include "sqltext/completion.h"

#include "dataaccess/text/SqlTokens.h"
#include "sqltext/SyntaxDefinition.h"
#include "sqltext/dictionary.h"

#include <algorithm>
#include <span>
#include <utility>
#include <vector>

using namespace Qt::StringLiterals;

namespace {

using Tokens = std::span<const SqlToken>;

/// Words that a table's name follows.
bool leadsToTable(const SqlToken &token)
{
    return token.isOneOf("FROM JOIN UPDATE INTO DELETE USING"_L1);
}

/// Words that a list of tables ends at.
bool endsTables(const SqlToken &token)
{
    return token.isOneOf("SELECT WHERE GROUP HAVING ORDER SET UNION CONNECT MINUS EXCEPT "
                         "INTERSECT START VALUES FOR OFFSET FETCH RETURNING LIMIT"_L1);
}

/// Words that cannot be the name of a table or its alias.
bool isReserved(const SqlToken &token)
{
    return leadsToTable(token) || endsTables(token) ||
           token.isOneOf("ON AS LEFT RIGHT FULL INNER OUTER CROSS WHEN PIVOT LOOP NATURAL "
                         "PARTITION"_L1);
}

QString dictionaryName(const SqlToken &token)
{
    return token.kind == SqlToken::Word ? token.text.toString().toUpper() : token.value();
}

/// Reads the tables that a statement names, those of its subqueries among them.
class TableReader
{
public:
    /// @param typed  the token that is being typed, which names nothing yet
    TableReader(Tokens tokens, const SqlToken *typed)
        : m_tokens(tokens)
        , m_typed(typed)
    {
    }

    QList<StatementTable> nearestFirst()
    {
        bool expected = false;
        while (m_at < m_tokens.size()) {
            const SqlToken &token = m_tokens[m_at];
            if (expected && token.isName() && !isReserved(token)) {
                readTable();
                expected = false;
                continue;
            }
            expected = expectsTable(token);
            ++m_at;
        }
        std::stable_sort(m_found.begin(), m_found.end(),
                         [](const auto &a, const auto &b) { return a.first < b.first; });
        QList<StatementTable> tables;
        for (const auto &[distance, table] : std::as_const(m_found))
            tables += table;
        return tables;
    }

private:
    bool expectsTable(const SqlToken &token)
    {
        if (token.isSign(u'('))
            m_lists.append(false);
        else if (token.isSign(u')') && m_lists.size() > 1)
            m_lists.removeLast();
        else if (token.isSign(u','))
            return m_lists.last();
        else if (token.isWord(u"FROM"))
            m_lists.last() = true;
        else if (endsTables(token))
            m_lists.last() = false;
        return leadsToTable(token);
    }

    void readTable()
    {
        const SqlToken *const first = &m_tokens[m_at];
        StatementTable found;
        while (true) {
            found.schema = std::exchange(found.table, dictionaryName(m_tokens[m_at++]));
            if (m_at + 1 >= m_tokens.size() || !m_tokens[m_at].isSign(u'.') ||
                !m_tokens[m_at + 1].isName())
                break;
            ++m_at;
        }
        if (m_typed >= first && m_typed < first + (m_tokens.data() + m_at - first))
            return;
        if (m_at < m_tokens.size() && m_tokens[m_at].isWord(u"AS"))
            ++m_at;
        const bool hasAlias = m_at < m_tokens.size() && m_tokens[m_at].isName() &&
                              !isReserved(m_tokens[m_at]) && &m_tokens[m_at] != m_typed;
        found.alias = hasAlias ? dictionaryName(m_tokens[m_at++]) : found.table;
        m_found.append({std::abs(first - m_typed), found});
    }

    Tokens m_tokens;
    const SqlToken *m_typed;
    std::size_t m_at = 0;
    /// For each parenthesis that is open, and outside them, whether a comma leads to a table.
    QList<bool> m_lists{false};
    QList<std::pair<std::ptrdiff_t, StatementTable>> m_found;
};

/// Whether @p text has letters, and only small ones; nothing when it has none.
std::optional<bool> isInLowerCase(QStringView text)
{
    const auto isLetter = [](QChar character) { return character.isLetter(); };
    if (std::none_of(text.begin(), text.end(), isLetter))
        return {};
    return std::none_of(text.begin(), text.end(), [](QChar c) { return c.isUpper(); });
}

/// Whether what comes after @p before is being typed in small letters.
bool followsLowerCase(QStringView prefix, Tokens before)
{
    std::optional<bool> lower = isInLowerCase(prefix);
    for (auto token = before.rbegin(); !lower && token != before.rend(); ++token) {
        if (token->kind == SqlToken::Word)
            lower = isInLowerCase(token->text);
    }
    return lower.value_or(false);
}

const QStringList &keywords()
{
    static const QStringList words = [] {
        QStringList found =
            u"ALL ALTER ANY ASC BETWEEN CASE CASCADE COLUMN COMMENT COMMIT CONNECT CONSTRAINT "
            "COUNT CROSS DECLARE DEFAULT DELETE DESC DISTINCT DROP ELSE EXCEPTION EXECUTE EXISTS "
            "EXIT FOREIGN FULL GRANT HAVING IMMEDIATE INDEX INNER INTERSECT JOIN KEY LEFT LIKE "
            "MERGE MINUS MODIFY NUMBER NVL OUTER OVER PRIMARY PRIOR RAISE REFERENCES RETURN REVOKE "
            "RIGHT ROWNUM SAVEPOINT SET START SUM SYSDATE TO TRIGGER TRUNCATE UNION UNIQUE UPDATE "
            "USING VALUES WHEN WITH"_s.split(u' ');
        for (const auto &group : sqlWordClasses().keywordTable) {
            for (const QString &word : group) {
                if (std::all_of(word.begin(), word.end(), isWordCharacter) && !word.isEmpty())
                    found += word;
            }
        }
        return found;
    }();
    return words;
}

QStringList withoutQualifier(const CompletionPlace &place, DictionaryNames &names,
                             const QString &user)
{
    QStringList found = keywords() + names.schemas() + names.tables(user);
    for (const StatementTable &table : place.tables)
        found += names.columns(table.schema.isEmpty() ? user : table.schema, table.table);
    return found;
}

QStringList behindName(const CompletionPlace &place, DictionaryNames &names, const QString &user)
{
    const QString &name = place.qualifier.first();
    const auto table = std::find_if(place.tables.begin(), place.tables.end(),
                                    [&](const StatementTable &one) { return one.alias == name; });
    if (table != place.tables.end())
        return names.columns(table->schema.isEmpty() ? user : table->schema, table->table);
    QStringList found;
    if (names.schemas().contains(name))
        found += names.tables(name);
    if (names.tables(user).contains(name))
        found += names.columns(user, name);
    return found;
}

} // namespace

std::optional<CompletionPlace> completionPlace(QStringView text, qsizetype caret)
{
    // With a letter at the caret there is a word to find, unless something else holds the caret. A
    // word behind the caret of which nothing has been typed is another one.
    const bool goesOn = caret > 0 && isWordCharacter(text[caret - 1]);
    const QString marked =
        text.first(caret).toString() + (goesOn ? u"x"_s : u"x "_s) + text.sliced(caret).toString();
    std::vector<SqlToken> tokens;
    std::size_t begin = 0;
    std::optional<std::size_t> typed;
    SqlTokens reader(marked);
    for (SqlToken token = reader.next(); token.kind != SqlToken::End; token = reader.next()) {
        const qsizetype start = token.text.data() - marked.data();
        if (start <= caret && caret < start + token.text.size())
            typed = tokens.size();
        if (token.isSign(u';')) {
            if (start > caret)
                break;
            begin = tokens.size() + 1;
        }
        tokens.push_back(token);
    }
    if (!typed || tokens[*typed].kind != SqlToken::Word)
        return {};

    CompletionPlace place;
    place.begin = tokens[*typed].text.data() - marked.data();
    for (std::size_t at = *typed;
         at >= begin + 2 && tokens[at - 1].isSign(u'.') && tokens[at - 2].isName(); at -= 2)
        place.qualifier.prepend(dictionaryName(tokens[at - 2]));
    const Tokens statement = Tokens(tokens).subspan(begin);
    place.tables = TableReader(statement, &tokens[*typed]).nearestFirst();
    place.lowerCase = followsLowerCase(text.sliced(place.begin, caret - place.begin),
                                       Tokens(tokens).subspan(begin, *typed - begin));
    return place;
}

QStringList completions(const CompletionPlace &place, DictionaryNames &names, const QString &user)
{
    QStringList found;
    if (place.qualifier.isEmpty())
        found = withoutQualifier(place, names, user);
    else if (place.qualifier.size() == 1)
        found = behindName(place, names, user);
    else
        found = names.columns(place.qualifier.end()[-2], place.qualifier.last());
    std::sort(found.begin(), found.end(), [](const QString &a, const QString &b) {
        return a.compare(b, Qt::CaseInsensitive) < 0;
    });
    found.erase(std::unique(found.begin(), found.end()), found.end());
    return found;
}

QString completionText(const QString &name, bool lowerCase)
{
    return lowerCase && name == name.toUpper() ? name.toLower() : name;
}
