#pragma once

#include "dataaccess/Value.h"
#include "dataaccess/dataAccessTypes.h"

#include <QString>

#include <memory>
#include <vector>

class CommandPrivate;
class Connection;

/// One argument of a command. Output parameters are all that there are: what goes in stands in the
/// command's text.
struct Parameter
{
    QString name;
    DataTypeEnum type = adVarChar;
    ParameterDirectionEnum direction = adParamOutput;
    int size = 0; ///< longest text in UTF-16 units; 0 for types of fixed size
    Value value;  ///< what came out; empty before the first execution
};

/// A command that is executed many times with parameters: the statement is prepared once and its
/// parameters stay bound.
class Command
{
public:
    Command();
    ~Command();
    Command(const Command &) = delete;
    Command &operator=(const Command &) = delete;

    QString CommandText;
    CommandTypeEnum CommandType = adCmdUnknown;
    std::shared_ptr<Connection> ActiveConnection;

    /// @throws RuntimeError 3708 for a text without a size, 3251 for another direction than out
    void appendParameter(const Parameter &parameter);
    /// @throws RuntimeError 3265 for an unknown name
    const Value &parameter(const QString &name) const;

    /// A stored procedure is sent as `{call name(?, …)}`; output parameters are read after the
    /// last result. A text that does not fit its parameter's size is an error, never cut.
    /// @throws RuntimeError 3709 without an open connection, 3708 for a parameter that is neither a
    ///         text nor a whole number of up to 32 bits, -2147217887 for a text that is too long,
    ///         otherwise the driver's
    void Execute();

private:
    std::vector<Parameter> m_parameters;
    std::unique_ptr<CommandPrivate> d;
};
