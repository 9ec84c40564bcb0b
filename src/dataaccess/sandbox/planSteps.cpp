#include "dataaccess/sandbox/sandboxDialect.h"

#include "dataaccess/text/SqlTokens.h"
#include "platform/RuntimeError.h"

#include <QHash>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <cmath>

using namespace Qt::StringLiterals;

namespace {

std::optional<qint64> figure(const QJsonValue &value)
{
    if (!value.isDouble() || !(std::abs(value.toDouble()) < 1e18))
        return std::nullopt;
    return static_cast<qint64>(std::ceil(value.toDouble()));
}

// What joins a part to those before it; how the server writes outer joins' conditions tells them.
QString joinOperation(const QJsonObject &part)
{
    const QString type = part.value("block-nl-join"_L1).toObject().value("join_type"_L1).toString();
    return type.contains(u'H') ? u"HASH JOIN"_s : u"NESTED LOOPS"_s;
}

QString joinOptions(const QJsonObject &part)
{
    const QString text = QString::fromUtf8(QJsonDocument(part).toJson(QJsonDocument::Compact));
    return text.contains("trigcond("_L1) ? u"OUTER"_s : QString();
}

QString statementVerb(const QString &statement)
{
    SqlTokens tokens(statement);
    SqlToken token = tokens.next();
    while (token.isSign(u'('))
        token = tokens.next();
    if (token.kind != SqlToken::Word || token.isWord(u"WITH"))
        return u"SELECT"_s;
    return token.text.toString().toUpper();
}

/// Walks through the server's plan, a tree of JSON objects.
class PlanReader
{
public:
    explicit PlanReader(const QString &statement)
        : m_verb(statementVerb(statement))
    {
        collectAliases(statement);
    }

    QList<PlanStep> read(const QJsonObject &plan)
    {
        int parent = addStep(-1, m_verb + u" STATEMENT"_s);
        if (m_verb == "INSERT"_L1 || m_verb == "REPLACE"_L1)
            parent = addStep(parent, u"LOAD TABLE"_s, u"CONVENTIONAL"_s);
        else if (m_verb == "UPDATE"_L1 || m_verb == "DELETE"_L1)
            parent = addStep(parent, m_verb);
        if (parent != 0)
            m_steps[parent].objectName = m_target;
        readChildren(plan, parent);
        return m_steps;
    }

private:
    int addStep(int parent, const QString &operation, const QString &options = {})
    {
        const int id = int(m_steps.size());
        m_steps.append({id, parent, operation, options, {}, {}, {}});
        return id;
    }

    int addStepOn(const QJsonObject &table, int parent, const QString &operation,
                  const QString &options, const QString &name)
    {
        const int id = addStep(parent, operation, options);
        m_steps[id].objectName = name;
        m_steps[id].cost = figure(table.value("cost"_L1));
        m_steps[id].cardinality = figure(table.value("rows"_L1));
        return id;
    }

    // The parts of a node in the order in which the work is told: what is done last comes first.
    void readChildren(const QJsonObject &node, int parent)
    {
        for (auto part = node.begin(); part != node.end(); ++part)
            readPart(part.key(), part.value(), parent);
    }

    void readPart(const QString &name, const QJsonValue &value, int parent)
    {
        QJsonObject inner = value.toObject();
        if (name == "query_block"_L1) {
            readBlock(inner, parent);
        } else if (name == "filesort"_L1) {
            readChildren(inner, addStep(parent, u"SORT"_s, u"ORDER BY"_s));
        } else if (name == "temporary_table"_L1) {
            readChildren(inner, addStep(parent, u"TEMPORARY TABLE"_s));
        } else if (name == "window_functions_computation"_L1) {
            inner.remove("sorts"_L1);
            readChildren(inner, addStep(parent, u"WINDOW"_s, u"SORT"_s));
        } else if (name == "union_result"_L1 || name == "recursive_union"_L1) {
            readUnion(inner, parent);
        } else if (name == "nested_loop"_L1) {
            readJoin(value.toArray(), parent);
        } else if (name == "table"_L1) {
            readTable(inner, parent);
        } else {
            readChildren(inner, parent);
            const QJsonArray items = value.toArray();
            for (const QJsonValue item : items)
                readChildren(item.toObject(), parent);
        }
    }

    void readBlock(QJsonObject block, int parent)
    {
        const QJsonArray subqueries = block.take("subqueries"_L1).toArray();
        const bool filters =
            !subqueries.isEmpty() || !block.value("having_condition"_L1).toString().isEmpty();
        const int within = filters ? addStep(parent, u"FILTER"_s) : parent;
        readChildren(block, within);
        for (const QJsonValue subquery : subqueries)
            readChildren(subquery.toObject(), within);
    }

    void readUnion(const QJsonObject &result, int parent)
    {
        const QJsonArray parts = result.value("query_specifications"_L1).toArray();
        // The first part has no operation; the server says UNION for UNION ALL too, which it runs
        // without a table in between when it can.
        const QString last = parts.last()
                                 .toObject()
                                 .value("query_block"_L1)
                                 .toObject()
                                 .value("operation"_L1)
                                 .toString();
        const bool all = !result.contains("table_name"_L1);
        const QString operation = last == "INTERSECT"_L1 ? u"INTERSECTION"_s
                                  : last == "EXCEPT"_L1  ? u"MINUS"_s
                                  : all                  ? u"UNION-ALL"_s
                                                         : u"UNION"_s;
        const int step = addStep(parent, operation);
        for (const QJsonValue part : parts)
            readChildren(part.toObject(), step);
    }

    // Tables are joined one after the other: the last join is the outermost step.
    void readJoin(const QJsonArray &parts, int parent)
    {
        QList<int> joins{parent};
        for (qsizetype last = parts.size() - 1; last > 0; --last) {
            const QJsonObject part = parts[last].toObject();
            joins.prepend(addStep(joins.first(), joinOperation(part), joinOptions(part)));
        }
        for (qsizetype index = 0; index < parts.size(); ++index)
            readChildren(parts[index].toObject(), joins[qMax<qsizetype>(0, index - 1)]);
    }

    void readTable(const QJsonObject &table, int parent)
    {
        const QString message = table.value("message"_L1).toString();
        if (message == "No tables used"_L1) {
            addStep(parent, u"FAST DUAL"_s);
        } else if (!message.isEmpty()) {
            addStep(parent, u"RESULT"_s, message.toUpper());
        } else if (table.contains("materialized"_L1)) {
            const int view = addStepOn(table, parent, u"VIEW"_s, {}, {});
            readChildren(table.value("materialized"_L1).toObject(), view);
        } else if (table.contains("access_type"_L1)) {
            readAccess(table, parent);
        } // else the table that an INSERT fills, named above
    }

    void readAccess(const QJsonObject &table, int parent)
    {
        QString access = table.value("access_type"_L1).toString();
        if (access.startsWith("hash_"_L1))
            access = access.sliced(5);
        QString name = table.value("table_name"_L1).toString().toUpper();
        name = m_tables.value(name, name);
        const QString index = table.value("key"_L1).toString().toUpper();
        const QString byTable = u"TABLE ACCESS"_s;
        if (access == "ALL"_L1 || access == "system"_L1 || index.isEmpty()) {
            addStepOn(table, parent, byTable, u"FULL"_s, name);
            return;
        }
        if (!table.contains("using_index"_L1))
            parent = addStepOn(table, parent, byTable, u"BY INDEX ROWID"_s, name);
        const QString scan =
            access == "index"_L1 ? u"FULL SCAN"_s
            : access == "const"_L1 || access == "eq_ref"_L1 || access == "unique_subquery"_L1
                ? u"UNIQUE SCAN"_s
                : u"RANGE SCAN"_s;
        addStepOn(table, parent, u"INDEX"_s, scan, index);
    }

    // The plan names tables by their aliases. A table stands after FROM, JOIN, UPDATE, INTO or a
    // comma, with its alias after it; a comma between columns finds pairs that no plan asks for.
    void collectAliases(const QString &statement)
    {
        SqlTokens tokens(statement);
        SqlToken token = tokens.next();
        while (token.kind != SqlToken::End) {
            const bool first = token.isOneOf("FROM UPDATE INTO"_L1);
            const bool starts = first || token.isWord(u"JOIN") || token.isSign(u',');
            token = tokens.next();
            if (!starts || !token.isName())
                continue;
            QString table = token.value();
            token = tokens.next();
            while (token.isSign(u'.')) {
                table = tokens.next().value();
                token = tokens.next();
            }
            if (first && m_target.isEmpty())
                m_target = table.toUpper();
            if (token.isWord(u"AS"))
                token = tokens.next();
            if (token.isName() && !m_tables.contains(token.value().toUpper()))
                m_tables.insert(token.value().toUpper(), table.toUpper());
        }
    }

    QString m_verb;
    QString m_target;
    QHash<QString, QString> m_tables; ///< table names by alias, both in upper case
    QList<PlanStep> m_steps;
};

} // namespace

QList<PlanStep> planSteps(const QString &statement, const QString &json)
{
    const QJsonDocument document = QJsonDocument::fromJson(json.toUtf8());
    if (!document.isObject())
        throw RuntimeError(ErrorNumber::ProviderFailed);
    return PlanReader(statement).read(document.object());
}
