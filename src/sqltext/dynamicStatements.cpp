#include "sqltext/dynamicStatements.h"

#include "sqltext/sqlFilters.h"

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
