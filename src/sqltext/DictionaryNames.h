#pragma once

#include <QHash>
#include <QString>
#include <QStringList>

#include <functional>

/// The names that a server's dictionary has, each list asked for once, when it is first needed.
///
/// After a first failure nothing more is asked: a server without such a dictionary has no names.
class DictionaryNames
{
public:
    /// Gives the first column of a query's rows. What it raises, a RuntimeError, ends the asking.
    using Ask = std::function<QStringList(const QString &query)>;

    explicit DictionaryNames(Ask ask)
        : m_ask(std::move(ask))
    {
    }

    QStringList schemas();
    /// Schemas and tables in the dictionary's own writing.
    QStringList tables(const QString &schema);
    QStringList columns(const QString &schema, const QString &table);

    /// Has the lists asked for again when they are next needed.
    void forget() { m_answers.clear(); }

private:
    QStringList answer(const QString &query);

    Ask m_ask;
    QHash<QString, QStringList> m_answers;
    bool m_failed = false;
};
