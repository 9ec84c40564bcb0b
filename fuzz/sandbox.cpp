// The sandbox's translations: what is put into a statement comes out of it again, and blocks and
// plans keep their parts, whatever their text.

#include "dataaccess/sandbox/sandboxDialect.h"
#include "dataaccess/text/SqlTokens.h"
#include "platform/RuntimeError.h"
#include "sqltext/sqlTexts.h"
#include "support/fuzzing.h"

using namespace Qt::StringLiterals;

namespace {

QStringList tokensOf(const QString &text)
{
    QStringList result;
    SqlTokens tokens(text);
    for (SqlToken token = tokens.next(); token.kind != SqlToken::End; token = tokens.next()) {
        require(!token.text.isEmpty(), "a token has characters");
        require(token.value().size() <= token.text.size(), "a value is no longer than its token");
        result.append(token.text.toString());
    }
    require(tokens.rest().isEmpty(), "all of a text is read");
    return result;
}

/// Whether no comment, literal or name is left open at the end of @p text.
bool isClosed(const QString &text)
{
    const QString end = u"\n;"_s;
    return tokensOf(text + end) == tokensOf(text) + QStringList{u";"_s};
}

QString doubled(QString text)
{
    return text.replace(u'\'', u"''"_s);
}

/// How often @p value stands in @p text as a literal.
int literalCount(const QString &text, const QString &value)
{
    int count = 0;
    SqlTokens tokens(text);
    for (SqlToken token = tokens.next(); token.kind != SqlToken::End; token = tokens.next())
        count += token.kind == SqlToken::Literal && token.value() == value;
    return count;
}

void checkExplain(const QString &text)
{
    if (const auto request = explainRequest(text))
        require(text.endsWith(request->statement), "what is explained is the end of the text");
    const auto request = explainRequest(explainPlanStatement(doubled(text), text));
    require(request && request->statementId, "the program's own request is one");
    requireEqual(*request->statementId, text, "its id is read back");
    requireEqual(request->statement, u' ' + QString(text).replace(u':', u'&'),
                 "its statement is read back");
}

void checkPlanQuery(const QString &text)
{
    planQueryId(text);
    const auto id = planQueryId(planQuery(doubled(text)));
    require(id.has_value(), "the program's own query is one");
    requireEqual(*id, text, "its id is read back");
    require(literalCount(serverPlanQuery(text), text) >= 2, "the server's query asks for the id");
}

void checkBlock(const QString &text)
{
    const auto block = blockStatement(text);
    const QStringList before = tokensOf(text);
    const bool isBlock =
        !before.isEmpty() && (before[0].compare("BEGIN"_L1, Qt::CaseInsensitive) == 0 ||
                              before[0].compare("DECLARE"_L1, Qt::CaseInsensitive) == 0);
    require(block.has_value() == isBlock, "blocks and nothing else are translated");
    if (!isBlock || *block == text || !isClosed(text))
        return;
    QStringList expected{u"BEGIN"_s, u"NOT"_s, u"ATOMIC"_s};
    if (before[0].size() > 5)
        expected += u"DECLARE"_s;
    expected += before.mid(1);
    if (before[0].size() > 5)
        expected += before.last() == u";" ? QStringList{u"END"_s} : QStringList{u";"_s, u"END"_s};
    require(tokensOf(*block) == expected, "a block keeps its words");
}

void checkPlan(const QString &statement, const QString &json)
{
    QList<PlanStep> steps;
    try {
        steps = planSteps(statement, json);
    } catch (const RuntimeError &error) {
        require(error.number == ErrorNumber::ProviderFailed, "what is no plan is told");
        return;
    }
    for (qsizetype id = 0; id < steps.size(); ++id) {
        require(steps[id].id == id && steps[id].parentId < id, "a step is below another");
        require((steps[id].parentId < 0) == (id == 0), "the statement is the first step");
    }
    const QString insertion = planInsertion(statement, steps);
    require(isClosed(insertion), "a plan's texts stay in their literals");
    require(literalCount(insertion, statement) >= steps.size(), "every step has the plan's id");
}

void checkCalls(const QString &text)
{
    const QString call = asProcedureCall(text);
    require(call == text || (call.startsWith("{call "_L1) && call.endsWith(u'}')),
            "a text is a call or stays");
    require(call == text || hasOdbcEscape(call), "a call is an escape");
    require(!hasOdbcEscape(text) || text.contains(u'{'), "an escape has a brace");
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    const QList<QString> texts = textsOf(data, size, 2);
    const QString &statement = texts[0];
    checkExplain(statement);
    checkPlanQuery(statement);
    checkBlock(statement);
    checkCalls(statement);
    checkPlan(statement, texts[1]);
    return 0;
}
