#include "dataaccess/Command.h"

#include "dataaccess/Connection.h"
#include "dataaccess/ConnectionPrivate.h"
#include "dataaccess/SessionClient.h"
#include "dataaccess/odbc/ParameterBuffer.h"
#include "platform/RuntimeError.h"

#include <QScopeGuard>
#include <QStringList>

#include <algorithm>

using namespace Qt::StringLiterals;

/// A command's prepared statement, for as long as text, connection and parameters stay.
class CommandPrivate final : public SessionClient
{
public:
    CommandPrivate() = default;
    ~CommandPrivate() { unprepare(); }
    CommandPrivate(const CommandPrivate &) = delete;
    CommandPrivate &operator=(const CommandPrivate &) = delete;

    bool isPreparedFor(const std::shared_ptr<OdbcSession> &session, const QString &text) const
    {
        return m_statement && m_session == session && m_text == text;
    }
    void prepare(const std::shared_ptr<OdbcSession> &session, const QString &text,
                 const std::vector<Parameter> &parameters);
    void execute(std::vector<Parameter> &parameters);
    void unprepare();

    void sessionClosing() override { unprepare(); }
    bool hasOpenResult() const override { return false; } // all are taken in by execute()
    void releaseResult() override {}

private:
    std::shared_ptr<OdbcSession> m_session;
    QString m_text;
    std::vector<ParameterBuffer> m_buffers;
    OdbcHandle m_statement;
};

void CommandPrivate::unprepare()
{
    m_statement.reset();
    if (m_session)
        m_session->removeClient(this);
    m_session.reset();
}

void CommandPrivate::prepare(const std::shared_ptr<OdbcSession> &session, const QString &text,
                             const std::vector<Parameter> &parameters)
{
    unprepare();
    m_buffers.clear();
    m_buffers.reserve(parameters.size());
    for (const Parameter &parameter : parameters)
        m_buffers.emplace_back(parameter, session->abilities().isMariaDb);
    const QString adapted = session->adapted(text);
    OdbcHandle statement;
    session->withResultsReleased([&] {
        statement = session->statementFor(adapted);
        prepareText(statement, adapted);
    });
    for (size_t i = 0; i < m_buffers.size(); ++i)
        m_buffers[i].bind(statement, static_cast<SQLUSMALLINT>(i + 1));
    m_statement = std::move(statement);
    m_text = text;
    m_session = session;
    m_session->addClient(this);
}

void CommandPrivate::execute(std::vector<Parameter> &parameters)
{
    for (ParameterBuffer &buffer : m_buffers)
        buffer.clear();
    // A result that is left open after a failure would make every later execution fail.
    const auto close = qScopeGuard([this] { SQLFreeStmt(m_statement.get(), SQL_CLOSE); });
    m_session->withResultsReleased(
        [this] { checkOdbc(SQLExecute(m_statement.get()), m_statement); });
    takeRemainingResults(m_statement);
    for (size_t i = 0; i < m_buffers.size(); ++i)
        parameters[i].value = m_buffers[i].load(parameters[i]);
}

namespace {

QString textToSend(const Command &command, size_t parameterCount)
{
    if (command.CommandType != adCmdStoredProc)
        return command.CommandText;
    if (parameterCount == 0)
        return u"{call %1}"_s.arg(command.CommandText);
    const QStringList marks(static_cast<qsizetype>(parameterCount), u"?"_s);
    return u"{call %1(%2)}"_s.arg(command.CommandText, marks.join(u", "_s));
}

} // namespace

Command::Command()
    : d(std::make_unique<CommandPrivate>())
{
}

Command::~Command() = default;

void Command::appendParameter(const Parameter &parameter)
{
    if (parameter.direction != adParamOutput)
        throw RuntimeError(ErrorNumber::FeatureNotAvailable);
    if (isCharacterType(parameter.type) && parameter.size <= 0)
        throw RuntimeError(ErrorNumber::BadParameterInfo);
    m_parameters.push_back(parameter);
    d->unprepare();
}

const Value &Command::parameter(const QString &name) const
{
    const auto found =
        std::find_if(m_parameters.begin(), m_parameters.end(), [&](const Parameter &parameter) {
            return parameter.name.compare(name, Qt::CaseInsensitive) == 0;
        });
    if (found == m_parameters.end())
        throw RuntimeError(ErrorNumber::ItemNotFound);
    return found->value;
}

void Command::Execute()
{
    if (!ActiveConnection || ActiveConnection->State() == adStateClosed)
        throw RuntimeError(ErrorNumber::InvalidConnection);
    const std::shared_ptr<OdbcSession> &session = ActiveConnection->d->session;
    const QString text = textToSend(*this, m_parameters.size());
    if (!d->isPreparedFor(session, text))
        d->prepare(session, text, m_parameters);
    d->execute(m_parameters);
}
