#include "dataaccess/sandbox/PlanReader.h"

#include "dataaccess/SqlTokens.h"
#include "platform/RuntimeError.h"

#include <QJsonArray>
#include <QJsonDocument>

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

} // namespace

PlanReader::PlanReader(const QString &statement)
    : m_statement(statement)
    , m_verb(statementVerb(statement))
{
    collectAliases();
}

QList<PlanStep> PlanReader::read(const QJsonObject &plan)
{
    m_steps.clear();
    m_children.clear();
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

int PlanReader::addStep(int parent, const QString &operation, const QString &options)
{
    PlanStep step;
    step.id = int(m_steps.size());
    step.operation = operation;
    step.options = options;
    if (parent >= 0) {
        step.parentId = parent;
        step.depth = m_steps[parent].depth + 1;
        step.position = ++m_children[parent];
    }
    m_steps.append(step);
    m_children.append(0);
    return step.id;
}

// The parts of a node in the order in which the work is told: what is done last comes first.
void PlanReader::readChildren(const QJsonObject &node, int parent)
{
    for (auto part = node.begin(); part != node.end(); ++part) {
        const QString name = part.key();
        const QJsonValue value = part.value();
        if (name == "query_block"_L1) {
            readBlock(value.toObject(), parent);
        } else if (name == "filesort"_L1) {
            const int sort = addStep(parent, u"SORT"_s, u"ORDER BY"_s);
            readChildren(value.toObject(), sort);
        } else if (name == "temporary_table"_L1) {
            readChildren(value.toObject(), addStep(parent, u"TEMPORARY TABLE"_s));
        } else if (name == "window_functions_computation"_L1) {
            const QJsonObject window = value.toObject();
            QJsonObject input = window;
            input.remove("sorts"_L1);
            readChildren(input, addStep(parent, u"WINDOW"_s, u"SORT"_s));
        } else if (name == "union_result"_L1 || name == "recursive_union"_L1) {
            readUnion(value.toObject(), parent);
        } else if (name == "nested_loop"_L1) {
            const QJsonArray parts = value.toArray();
            readJoin(parts, parts.size(), parent);
        } else if (name == "table"_L1) {
            readTable(value.toObject(), parent);
        } else if (value.isObject()) {
            readChildren(value.toObject(), parent);
        } else if (value.isArray()) {
            const QJsonArray items = value.toArray();
            for (const QJsonValue item : items)
                readChildren(item.toObject(), parent);
        }
    }
}

void PlanReader::readBlock(const QJsonObject &block, int parent)
{
    QJsonObject body = block;
    const QJsonArray subqueries = body.take("subqueries"_L1).toArray();
    const QString condition = body.value("having_condition"_L1).toString();
    int within = parent;
    if (!condition.isEmpty() || !subqueries.isEmpty()) {
        within = addStep(parent, u"FILTER"_s);
        m_steps[within].filterPredicates = condition;
    }
    readChildren(body, within);
    for (const QJsonValue subquery : subqueries)
        readChildren(subquery.toObject(), within);
}

void PlanReader::readUnion(const QJsonObject &result, int parent)
{
    const QJsonArray parts = result.value("query_specifications"_L1).toArray();
    // The first part has no operation; the server says UNION for UNION ALL too, which it runs
    // without a table in between when it can.
    const QString last =
        parts.last().toObject().value("query_block"_L1).toObject().value("operation"_L1).toString();
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
void PlanReader::readJoin(const QJsonArray &parts, qsizetype count, int parent)
{
    QList<int> joins;
    int outer = parent;
    for (qsizetype last = count - 1; last > 0; --last) {
        const QJsonObject part = parts[last].toObject();
        outer = addStep(outer, joinOperation(part), joinOptions(part));
        joins.prepend(outer);
    }
    for (qsizetype index = 0; index < count; ++index) {
        const int join = joins.isEmpty() ? parent : joins[qMax<qsizetype>(0, index - 1)];
        readChildren(parts[index].toObject(), join);
    }
}

void PlanReader::readTable(const QJsonObject &table, int parent)
{
    const QString message = table.value("message"_L1).toString();
    if (message == "No tables used"_L1) {
        addStep(parent, u"FAST DUAL"_s);
    } else if (!message.isEmpty()) {
        addStep(parent, u"RESULT"_s, message.toUpper());
    } else if (table.contains("materialized"_L1)) {
        const int view = addStep(parent, u"VIEW"_s);
        m_steps[view].cardinality = figure(table.value("rows"_L1));
        m_steps[view].cost = figure(table.value("cost"_L1));
        m_steps[view].filterPredicates = table.value("attached_condition"_L1).toString();
        readChildren(table.value("materialized"_L1).toObject(), view);
    } else if (table.contains("access_type"_L1)) {
        readAccess(table, parent);
    } // else the table that an INSERT fills, named above
}

void PlanReader::readAccess(const QJsonObject &table, int parent)
{
    QString access = table.value("access_type"_L1).toString();
    if (access.startsWith("hash_"_L1))
        access = access.sliced(5);
    const QString index = table.value("key"_L1).toString();
    if (access == "ALL"_L1 || access == "system"_L1 || index.isEmpty()) {
        addObjectStep(parent, u"TABLE ACCESS"_s, u"FULL"_s, table);
        return;
    }

    int within = parent;
    if (!table.contains("using_index"_L1))
        within = addObjectStep(parent, u"TABLE ACCESS"_s, u"BY INDEX ROWID"_s, table);
    const QString scan =
        access == "index"_L1 ? u"FULL SCAN"_s
        : access == "const"_L1 || access == "eq_ref"_L1 || access == "unique_subquery"_L1
            ? u"UNIQUE SCAN"_s
            : u"RANGE SCAN"_s;
    const int step = addObjectStep(within, u"INDEX"_s, scan, table);
    m_steps[step].objectName = index.toUpper();
    m_steps[step].objectType = u"INDEX"_s;
    m_steps[step].accessPredicates = table.value("index_condition"_L1).toString();
    if (within != parent)
        m_steps[step].filterPredicates.clear();
}

int PlanReader::addObjectStep(int parent, const QString &operation, const QString &options,
                              const QJsonObject &table)
{
    const int id = addStep(parent, operation, options);
    PlanStep &step = m_steps[id];
    const QString name = table.value("table_name"_L1).toString().toUpper();
    step.objectAlias = name;
    step.objectName = m_tables.value(name, name);
    step.objectType = u"TABLE"_s;
    step.cardinality = figure(table.value("rows"_L1));
    step.cost = figure(table.value("cost"_L1));
    step.filterPredicates = table.value("attached_condition"_L1).toString();
    return id;
}

// The plan names tables by their aliases. A table stands behind FROM, JOIN, UPDATE, INTO or a
// comma, with its alias behind it; a comma between columns finds pairs that no plan asks for.
void PlanReader::collectAliases()
{
    SqlTokens tokens(m_statement);
    SqlToken token = tokens.next();
    while (token.kind != SqlToken::End) {
        const bool first =
            token.isWord(u"FROM") || token.isWord(u"UPDATE") || token.isWord(u"INTO");
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

QList<PlanStep> planSteps(const QString &statement, const QString &json)
{
    const QJsonDocument document = QJsonDocument::fromJson(json.toUtf8());
    if (!document.isObject())
        throw RuntimeError(ErrorNumber::ProviderFailed);
    return PlanReader(statement).read(document.object());
}
