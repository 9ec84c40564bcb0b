#include "dataaccess/Command.h"

#include "dataaccess/Connection.h"
#include "dataaccess/odbc/OdbcSession.h"
#include "dataaccess/odbc/ParameterBuffer.h"
#include "platform/RuntimeError.h"

#include <QScopeGuard>
#include <QStringList>

#include <algorithm>

using namespace Qt::StringLiterals;

Command::Command() = default;

Command::~Command()
{
    unprepare();
}

void Command::appendParameter(const Parameter &parameter)
{
    if (isCharacterType(parameter.type) && parameter.size <= 0)
        throw RuntimeError(ErrorNumber::BadParameterInfo);
    m_parameters.push_back(parameter);
    unprepare();
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

QString Command::callText() const
{
    const QStringList marks(static_cast<qsizetype>(m_parameters.size()), u"?"_s);
    return u"{call %1(%2)}"_s.arg(CommandText, marks.join(u", "_s));
}

void Command::Execute()
{
    const std::shared_ptr<OdbcSession> session = Connection::sessionOf(ActiveConnection);
    const QString text = callText();
    if (!m_statement || m_session != session || m_preparedText != text)
        prepare(session, text);
    for (ParameterBuffer &buffer : m_buffers)
        buffer.clear();
    // A result that is left open after a failure would make every later execution fail.
    const auto close = qScopeGuard([this] { SQLFreeStmt(m_statement->get(), SQL_CLOSE); });
    m_session->withResultsReleased(
        [this] { checkLongCall(*m_statement, [&] { return SQLExecute(m_statement->get()); }); });
    takeRemainingResults(*m_statement);
    for (size_t i = 0; i < m_buffers.size(); ++i)
        m_parameters[i].value = m_buffers[i].load(m_parameters[i]);
}

void Command::prepare(const std::shared_ptr<OdbcSession> &session, const QString &text)
{
    unprepare();
    m_buffers.clear();
    m_buffers.reserve(m_parameters.size());
    for (const Parameter &parameter : m_parameters)
        m_buffers.emplace_back(parameter, session->abilities().isMariaDb);
    const QString adapted = session->adapted(text);
    OdbcHandle statement;
    session->withResultsReleased([&] {
        statement = session->statementFor(adapted);
        prepareText(statement, adapted);
    });
    for (size_t i = 0; i < m_buffers.size(); ++i)
        m_buffers[i].bind(statement, static_cast<SQLUSMALLINT>(i + 1));
    m_statement = std::make_unique<OdbcHandle>(std::move(statement));
    m_preparedText = text;
    m_session = session;
    m_session->addClient(this);
}

void Command::unprepare()
{
    m_statement.reset();
    if (m_session)
        m_session->removeClient(this);
    m_session.reset();
}
