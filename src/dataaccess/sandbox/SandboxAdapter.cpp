#include "dataaccess/sandbox/SandboxAdapter.h"

#include "dataaccess/sandbox/sandboxDialect.h"

using namespace Qt::StringLiterals;

QString SandboxAdapter::adapt(const QString &commandText, StatementSession &session)
{
    if (const auto request = explainRequest(commandText)) {
        const QString plan = session.scalar(u"EXPLAIN FORMAT=JSON "_s + request->statement);
        return planInsertion(request->statementId, planSteps(request->statement, plan));
    }
    if (const auto statementId = planQueryId(commandText))
        return serverPlanQuery(*statementId);
    return blockStatement(commandText).value_or(commandText);
}
