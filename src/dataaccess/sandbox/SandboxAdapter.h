#pragma once

#include "dataaccess/StatementAdapter.h"

/// Stands in for what the sandbox's server does not know; see sandboxDialect.h. Every other text
/// passes as it is.
class SandboxAdapter : public StatementAdapter
{
public:
    QString adapt(const QString &commandText, StatementSession &session) override;
};
