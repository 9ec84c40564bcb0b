#include "dataaccess/sandbox/sandboxDialect.h"

#include "dataaccess/text/SqlTokens.h"

#include <QStringBuilder>
#include <QStringList>

using namespace Qt::StringLiterals;

namespace {

// The literal is the statement id's place.
constexpr QStringView planQueryText =
    u"SELECT rtrim(substr(OPERATION || ' ' || OPTIONS || ' ' || OPTIMIZER, 1, 500)) Query_Plan, "
    "level, id, parent_id, nvl(object_name, ' ') object_name, "
    "nvl(to_char(cardinality), ' ') cardinality, nvl(to_char(bytes), ' ') bytes, "
    "nvl(to_char(COST), ' ') cost FROM (SELECT * FROM PLAN_TABLE WHERE statement_id = '?') "
    "START WITH ID = 0 CONNECT BY PRIOR ID = PARENT_ID";

QString literal(const QString &text)
{
    return u'\'' + QString(text).replace(u'\'', u"''"_s) + u'\'';
}

QString literalOrNull(const QString &text, qsizetype longest)
{
    return text.isEmpty() ? u"NULL"_s : literal(text.left(longest));
}

QString numberOrNull(const std::optional<qint64> &number)
{
    return number ? QString::number(*number) : u"NULL"_s;
}

} // namespace

std::optional<ExplainRequest> explainRequest(const QString &text)
{
    SqlTokens tokens(text);
    if (!tokens.next().isWord(u"EXPLAIN") || !tokens.next().isWord(u"PLAN"))
        return std::nullopt;

    ExplainRequest request;
    SqlToken token = tokens.next();
    if (token.isWord(u"SET")) {
        if (!tokens.next().isWord(u"STATEMENT_ID") || !tokens.next().isSign(u'='))
            return std::nullopt;
        token = tokens.next();
        if (token.kind != SqlToken::Literal)
            return std::nullopt;
        request.statementId = token.value();
        token = tokens.next();
    }
    if (!token.isWord(u"FOR"))
        return std::nullopt;
    request.statement = tokens.rest().toString();
    return request;
}

QString planInsertion(const std::optional<QString> &statementId, const QList<PlanStep> &steps)
{
    const QString id = statementId ? literal(*statementId) : u"NULL"_s;
    QStringList rows;
    for (const PlanStep &step : steps) {
        const QStringList values = {id,
                                    literalOrNull(step.operation, 30),
                                    literalOrNull(step.options, 255),
                                    literalOrNull(step.objectName, 64),
                                    QString::number(step.id),
                                    step.parentId < 0 ? u"NULL"_s : QString::number(step.parentId),
                                    numberOrNull(step.cost),
                                    numberOrNull(step.cardinality)};
        rows.append(u'(' + values.join(u", "_s) + u')');
    }
    return u"INSERT INTO plan_table (statement_id, operation, options, object_name, id, parent_id, "
           "cost, cardinality) VALUES\n"_s +
           rows.join(u",\n"_s);
}

std::optional<QString> planQueryId(const QString &text)
{
    SqlTokens tokens(text);
    SqlTokens expected(planQueryText);
    QString id;
    while (true) {
        const SqlToken token = tokens.next();
        const SqlToken wanted = expected.next();
        if (token.kind != wanted.kind)
            return std::nullopt;
        if (token.kind == SqlToken::End)
            return id;
        if (wanted.text == u"'?'")
            id = token.value();
        else if (token.text.compare(wanted.text, Qt::CaseInsensitive) != 0)
            return std::nullopt;
    }
}

QString serverPlanQuery(const QString &statementId)
{
    // The path of a step is the numbers of the steps above it and its own, all of one length, so
    // that the order of paths is the order of reading.
    return u"WITH RECURSIVE tree AS ("
           "SELECT plan_table.*, 1 AS step_level, CAST(LPAD(id, 10, '0') AS CHAR(60000)) AS path "
           "FROM plan_table WHERE statement_id = %1 AND id = 0 "
           "UNION ALL "
           "SELECT step.*, tree.step_level + 1, CONCAT(tree.path, LPAD(step.id, 10, '0')) "
           "FROM tree JOIN plan_table step "
           "ON step.statement_id = %1 AND step.parent_id = tree.id) "
           "SELECT RTRIM(SUBSTR(operation || ' ' || options || ' ' || optimizer, 1, 500)) "
           "AS \"QUERY_PLAN\", step_level AS \"LEVEL\", id AS \"ID\", parent_id AS \"PARENT_ID\", "
           "COALESCE(object_name, ' ') AS \"OBJECT_NAME\", "
           "COALESCE(CAST(cardinality AS CHAR), ' ') AS \"CARDINALITY\", "
           "COALESCE(CAST(bytes AS CHAR), ' ') AS \"BYTES\", "
           "COALESCE(CAST(cost AS CHAR), ' ') AS \"COST\" "
           "FROM tree ORDER BY path"_s.arg(literal(statementId));
}

std::optional<QString> blockStatement(const QString &text)
{
    SqlTokens tokens(text);
    const SqlToken first = tokens.next();
    const QStringView rest = tokens.rest();
    if (first.isWord(u"BEGIN"))
        return tokens.next().isWord(u"NOT") ? text : QString("BEGIN NOT ATOMIC"_L1 % rest);
    if (!first.isWord(u"DECLARE"))
        return std::nullopt;

    SqlToken last;
    for (SqlToken token = first; token.kind != SqlToken::End; token = tokens.next())
        last = token;
    // The ends are on lines of their own: the text may end in a comment.
    return "BEGIN NOT ATOMIC DECLARE"_L1 % rest % (last.isSign(u';') ? "\nEND"_L1 : "\n; END"_L1);
}

QString adaptToServer(const QString &commandText, const ScalarQuery &scalar)
{
    // The three kinds begin with different words. Blocks come first as scripts have thousands.
    if (const auto block = blockStatement(commandText))
        return *block;
    if (const auto request = explainRequest(commandText)) {
        const QString plan = scalar(u"EXPLAIN FORMAT=JSON "_s + request->statement);
        return planInsertion(request->statementId, planSteps(request->statement, plan));
    }
    if (const auto statementId = planQueryId(commandText))
        return serverPlanQuery(*statementId);
    return commandText;
}
