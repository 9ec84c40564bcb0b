#pragma once

#include <QString>

/// The hierarchical query of a plan as the program sends it; @p id as it stands in the literal.
inline QString planText(const QString &id)
{
    return QStringLiteral(
               " SELECT  rtrim(substr(OPERATION || ' ' || OPTIONS    || ' ' ||  OPTIMIZER,1,500))  "
               "Query_Plan, level, id,parent_id, nvl(object_name,' ') object_name, "
               "nvl(to_char(cardinality),' ') cardinality, nvl(to_char(bytes),' ') bytes, "
               "nvl(to_char(COST),' ') cost From (SELECT * FROM PLAN_TABLE WHERE statement_id = "
               "'") +
           id + QStringLiteral("')   START      WITH ID= 0  CONNECT    BY PRIOR ID= PARENT_ID");
}
