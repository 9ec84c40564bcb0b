#include "sqltext/sqlTexts.h"

#include "platform/textForms.h"

#include <QStringBuilder>

using namespace Qt::StringLiterals;

namespace {

QString literalText(const QString &statement)
{
    return lineFeedsOnly(doubleQuotes(statement));
}

} // namespace

QString dmlBlock(const QString &statement)
{
    return "begin \r\n execute immediate '"_L1 % literalText(statement) % "'; end;"_L1;
}

QString scriptBlock(const QString &statement)
{
    return "Begin \r\nexecute immediate ('"_L1 % literalText(statement) % "');\r\nend;"_L1;
}

QString explainStatementId(const QString &userName, const QDateTime &time)
{
    constexpr int userCharacters = 9;
    return userName.left(userCharacters) + dateTimeToText(time);
}

QString deletePlanStatement(const QString &statementId)
{
    return u"DELETE FROM PLAN_TABLE WHERE statement_id = '"_s + statementId + u'\'';
}

QString explainPlanStatement(const QString &statementId, QString statement)
{
    statement.replace(u':', u'&');
    return u"EXPLAIN PLAN set statement_id = '"_s + statementId + u"' FOR "_s + statement;
}

QString planQuery(const QString &statementId)
{
    return u" SELECT  rtrim(substr(OPERATION || ' ' || OPTIONS    || ' ' ||  OPTIMIZER,1,500))"
           "  Query_Plan, level, id,parent_id, nvl(object_name,' ') object_name,"
           " nvl(to_char(cardinality),' ') cardinality, nvl(to_char(bytes),' ') bytes,"
           " nvl(to_char(COST),' ') cost From (SELECT * FROM PLAN_TABLE WHERE statement_id = '"_s +
           statementId + u"')    START      WITH ID= 0  CONNECT    BY PRIOR ID= PARENT_ID"_s;
}
