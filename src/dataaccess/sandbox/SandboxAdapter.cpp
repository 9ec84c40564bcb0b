#include "dataaccess/sandbox/SandboxAdapter.h"

#include "dataaccess/sandbox/PlanReader.h"
#include "dataaccess/sandbox/sandboxDialect.h"

using namespace Qt::StringLiterals;

QString SandboxAdapter::adapt(const QString &commandText, StatementSession &session)
{
    // The three kinds begin with different words. Blocks come first as scripts have thousands.
    if (const auto block = blockStatement(commandText))
        return *block;
    if (const auto request = explainRequest(commandText)) {
        const QString plan = session.scalar(u"EXPLAIN FORMAT=JSON "_s + request->statement);
        return planInsertion(request->statementId, planSteps(request->statement, plan));
    }
    if (const auto statementId = planQueryId(commandText))
        return serverPlanQuery(*statementId);
    return commandText;
}
