#pragma once

#include "dataaccess/odbc/sessionParties.h"
#include "dataaccess/rows/dataAccessTypes.h"

#include <QString>

#include <memory>
#include <vector>

class Connection;
class OdbcHandle;
class OdbcSession;
class ParameterBuffer;

/// A stored procedure that is called many times: the call is prepared once and its parameters stay
/// bound. For work that Connection::inOneGo() runs, and where calls have no thread of their own.
class Command final : private SessionClient
{
public:
    Command();
    ~Command();
    Command(const Command &) = delete;
    Command &operator=(const Command &) = delete;

    QString CommandText; ///< the procedure's name
    std::shared_ptr<Connection> ActiveConnection;

    /// @throws RuntimeError 3708 for a text without a size
    void appendParameter(const Parameter &parameter);
    /// @throws RuntimeError 3265 for an unknown name
    const Value &parameter(const QString &name) const;

    /// Sends `{call name(?, …)}`; the parameters are read after the last result. A text that does
    /// not fit its parameter's size is an error, never cut.
    /// @throws RuntimeError 3709 without an open connection, 3708 for a parameter that is neither a
    ///         text nor a whole number of up to 32 bits, -2147217887 for a text that is too long,
    ///         otherwise the driver's
    void Execute();

private:
    void sessionClosing() override { unprepare(); }
    bool hasOpenResult() const override { return false; } // all are taken in by Execute()
    void releaseResult() override {}

    QString callText() const;
    void prepare(const std::shared_ptr<OdbcSession> &session, const QString &text);
    void unprepare();

    std::vector<Parameter> m_parameters;
    // The prepared call, for as long as text, connection and parameters stay.
    std::shared_ptr<OdbcSession> m_session;
    QString m_preparedText;
    std::vector<ParameterBuffer> m_buffers;
    std::unique_ptr<OdbcHandle> m_statement;
};
