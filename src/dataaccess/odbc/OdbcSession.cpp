#include "dataaccess/odbc/OdbcSession.h"

#include "dataaccess/odbc/OdbcCursor.h"
#include "dataaccess/text/SqlTokens.h"

#include <QRegularExpression>

#include <algorithm>
#include <limits>

using namespace Qt::StringLiterals;

namespace {

/// Seconds that logging on may take.
constexpr SQLULEN loginTimeout = 15;

SQLPOINTER attributeValue(SQLULEN value)
{
    return reinterpret_cast<SQLPOINTER>(static_cast<std::uintptr_t>(value));
}

void driverConnect(const OdbcHandle &connection, const QString &connectionString)
{
    SQLSMALLINT length = 0;
    checkOdbc(SQLDriverConnectW(connection.get(), nullptr, odbcText(connectionString),
                                static_cast<SQLSMALLINT>(connectionString.size()), nullptr, 0,
                                &length, SQL_DRIVER_NOPROMPT),
              connection);
}

/// Whether @p text may have results after its first one.
bool mayHaveFurtherResults(const QString &text)
{
    const SqlToken first = SqlTokens(text).next();
    return first.isOneOf("BEGIN CALL EXECUTE"_L1) || first.isSign(u'{');
}

/// Whether a driver refuses a statement because results are still open, rather than for what the
/// statement says. Drivers have no common state for this; some only have a text.
bool saysResultsAreOpen(const RuntimeError &error)
{
    if (error.sqlState == "24000"_L1 || error.sqlState == "HY010"_L1)
        return true;
    static const QRegularExpression texts(
        u"busy with|out of sync|(open|active|pending) (result|cursor|statement)|open cursors|"
        "statements? in progress|table is locked"_s,
        QRegularExpression::CaseInsensitiveOption);
    return texts.match(error.description).hasMatch();
}

/// Whether the driver ran out of memory. MariaDB's has lost track of its server then, and crashes
/// when it is given another statement.
bool saysMemoryRanOut(const RuntimeError &error, bool isMariaDb)
{
    constexpr int clientOutOfMemory = 2008;
    return error.sqlState == "HY001"_L1 || (isMariaDb && error.nativeError == clientOutOfMemory);
}

/// Whether @p text ends the transaction that it is sent in.
bool endsTransaction(const QString &text)
{
    return SqlTokens(text).next().isOneOf("ROLLBACK ABORT COMMIT END"_L1);
}

/// Whether the driver manager has room for the names of drivers in @p connectionString; one that is
/// too long would end the process. A name goes up to the next `;`, in a brace up to its end.
bool driverNamesFit(QStringView connectionString)
{
    constexpr qsizetype mostBytes = 1000;
    constexpr auto key = "DRIVER="_L1;
    for (;;) {
        const qsizetype found = connectionString.indexOf(key, 0, Qt::CaseInsensitive);
        if (found < 0)
            return true;
        connectionString = connectionString.sliced(found + key.size());
        const QChar closing = connectionString.startsWith(u'{') ? u'}' : u';';
        const QStringView name = connectionString.left(connectionString.indexOf(closing));
        if (name.toUtf8().size() > mostBytes)
            return false;
    }
}

template <typename Number>
Number info(const OdbcHandle &connection, SQLUSMALLINT what, Number otherwise)
{
    Number value = otherwise;
    const SQLRETURN code = SQLGetInfo(connection.get(), what, &value, sizeof value, nullptr);
    return SQL_SUCCEEDED(code) ? value : otherwise;
}

QString textInfo(const OdbcHandle &connection, SQLUSMALLINT what)
{
    char16_t name[128] = {};
    SQLSMALLINT bytes = 0;
    SQLGetInfoW(connection.get(), what, name, sizeof name - sizeof name[0], &bytes);
    return QString::fromUtf16(name);
}

/// For PostgreSQL's driver, which guards uncommitted work against a statement that fails by a
/// savepoint: to send that by itself (a round trip). Otherwise it goes in one piece with the
/// statement, is never made if that has a fault of syntax, and all work is rolled back in silence.
/// So it is when the driver has fetched rows through a cursor of the server's.
const QString postgreSqlSafeguards = u";Protocol=7.4-2;AB=20;UseDeclareFetch=0"_s;

bool isPostgreSql(const OdbcHandle &connection)
{
    return textInfo(connection, SQL_DRIVER_NAME).startsWith("psqlodbc"_L1, Qt::CaseInsensitive);
}

/// Sends a text through the driver and back. With a driver that has no wide functions the driver
/// manager does not bring it back whole.
bool passesWideText(const OdbcHandle &connection)
{
    const QString sent = u"'\u00DF\U0001F600'"_s;
    char16_t received[16] = {};
    SQLINTEGER length = 0;
    const SQLRETURN code =
        SQLNativeSqlW(connection.get(), odbcText(sent), static_cast<SQLINTEGER>(sent.size()),
                      reinterpret_cast<SQLWCHAR *>(received), std::size(received), &length);
    return !SQL_SUCCEEDED(code) || QString::fromUtf16(received) == sent;
}

bool keepsResults(const OdbcHandle &connection, SQLUSMALLINT what)
{
    return info<SQLUSMALLINT>(connection, what, SQL_CB_PRESERVE) == SQL_CB_PRESERVE;
}

} // namespace

OdbcSession::OdbcSession(ProviderSession provider)
    : m_thread(DriverThread::start())
    , m_hint(provider.hint)
    , m_provider(std::move(provider))
{
}

std::shared_ptr<OdbcSession> OdbcSession::open(ProviderSession provider)
{
    std::shared_ptr<OdbcSession> session(new OdbcSession(std::move(provider)));
    session->call([session] {
        try {
            session->logOn();
        } catch (...) {
            session->end();
            throw;
        }
    });
    return session;
}

void OdbcSession::logOn()
{
    m_environment = OdbcHandle(SQL_HANDLE_ENV, OdbcHandle());
    checkOdbc(
        SQLSetEnvAttr(m_environment.get(), SQL_ATTR_ODBC_VERSION, attributeValue(SQL_OV_ODBC3), 0),
        m_environment);
    m_connection = OdbcHandle(SQL_HANDLE_DBC, m_environment);
    connect(m_provider.odbcConnectionString);
    readAbilities();
}

void OdbcSession::connect(const QString &odbcConnectionString)
{
    if (odbcConnectionString.size() > std::numeric_limits<SQLSMALLINT>::max() ||
        !driverNamesFit(odbcConnectionString))
        throw RuntimeError(ErrorNumber::InvalidArgument);
    // A courtesy that not every driver knows.
    SQLSetConnectAttr(m_connection.get(), SQL_ATTR_LOGIN_TIMEOUT, attributeValue(loginTimeout), 0);
    driverConnect(m_connection, odbcConnectionString);
    if (isPostgreSql(m_connection)) {
        SQLDisconnect(m_connection.get());
        driverConnect(m_connection, odbcConnectionString + postgreSqlSafeguards);
    }
    m_connected = true;
    m_connection.setTakesUtf8(!passesWideText(m_connection));
}

void OdbcSession::readAbilities()
{
    const QString driver = textInfo(m_connection, SQL_DRIVER_NAME);
    m_abilities.getDataExtensions = info<SQLUINTEGER>(m_connection, SQL_GETDATA_EXTENSIONS, 0);
    m_abilities.isSqlite = textInfo(m_connection, SQL_DBMS_NAME) == "SQLite"_L1;
    m_abilities.definitionsCommit =
        info<SQLUSMALLINT>(m_connection, SQL_TXN_CAPABLE, SQL_TC_NONE) == SQL_TC_DDL_COMMIT;
    m_abilities.isMariaDb = driver.contains("maodbc"_L1);
    if (m_abilities.isMariaDb)
        m_abilities.givesUtf8 = scalar(u"select @@character_set_results"_s).startsWith("utf8"_L1);
    // PostgreSQL's driver without wide functions, such as psqlodbca.so, gives narrow texts alone.
    if (isPostgreSql(m_connection) && driver.section(u'.', 0, 0).endsWith(u'a')) {
        scalar(u"set client_encoding to 'UTF8'"_s);
        m_abilities.givesUtf8 = true;
    }
    m_oneResultOnly = info<SQLUSMALLINT>(m_connection, SQL_MAX_CONCURRENT_ACTIVITIES, 0) == 1;
    m_commitKeepsResults = keepsResults(m_connection, SQL_CURSOR_COMMIT_BEHAVIOR);
    m_rollbackKeepsResults = keepsResults(m_connection, SQL_CURSOR_ROLLBACK_BEHAVIOR);
    if (m_thread && (m_abilities.isMariaDb || m_abilities.isSqlite)) {
        m_idleStatement = OdbcHandle(SQL_HANDLE_STMT, m_connection);
        m_thread->setIdleStatement(m_idleStatement.get());
    }
}

void OdbcSession::close()
{
    if (!m_isOpen.exchange(false))
        return;
    if (m_thread)
        m_thread->finish([self = shared_from_this()] { self->end(); });
    else
        end();
}

void OdbcSession::end()
{
    while (!m_clients.empty()) {
        SessionClient *const client = m_clients.back();
        m_clients.pop_back();
        client->sessionClosing();
    }
    if (!m_autocommit && !m_isLost)
        SQLEndTran(SQL_HANDLE_DBC, m_connection.get(), SQL_ROLLBACK);
    if (m_thread)
        m_thread->setIdleStatement(nullptr);
    m_idleStatement.reset();
    m_spareStatement.reset();
    if (m_connected)
        SQLDisconnect(m_connection.get());
    m_connected = false;
    m_connection.reset();
    m_environment.reset();
    m_provider = {};
}

void OdbcSession::setAutocommit(bool on)
{
    if (m_autocommit == on)
        return;
    checkOdbc(SQLSetConnectAttr(m_connection.get(), SQL_ATTR_AUTOCOMMIT,
                                attributeValue(on ? SQL_AUTOCOMMIT_ON : SQL_AUTOCOMMIT_OFF),
                                SQL_IS_UINTEGER),
              m_connection);
    m_autocommit = on;
}

void OdbcSession::beginTransaction()
{
    if (m_inTransaction)
        throw RuntimeError(ErrorNumber::NestedTransaction);
    setAutocommit(false);
    m_inTransaction = true;
}

void OdbcSession::endTransaction(SQLSMALLINT completion)
{
    if (!m_inTransaction)
        throw RuntimeError(ErrorNumber::NoTransaction);
    const bool keeps = completion == SQL_COMMIT ? m_commitKeepsResults : m_rollbackKeepsResults;
    if (!keeps)
        releaseResults();
    withResultsReleased([&] {
        checkLongCall(m_connection,
                      [&] { return SQLEndTran(SQL_HANDLE_DBC, m_connection.get(), completion); });
    });
    // Autocommit stays off until a statement is sent outside a transaction: as a rule the next
    // transaction begins before that.
    m_inTransaction = false;
}

void OdbcSession::prepareToSend()
{
    if (m_isLost)
        throw RuntimeError(ErrorNumber::InvalidConnection);
    if (m_thread && !m_thread->isCurrent())
        throw RuntimeError(ErrorNumber::IllegalOperation);
    if (!m_inTransaction)
        setAutocommit(true);
    if (m_oneResultOnly)
        releaseResults();
}

OdbcHandle OdbcSession::statementFor(const QString &text)
{
    OdbcHandle statement(std::move(m_spareStatement));
    if (!statement)
        statement = OdbcHandle(SQL_HANDLE_STMT, m_connection);
    // Texts are the user's: braces in them that are no escape must reach the server as they are.
    SQLSetStmtAttr(statement.get(), SQL_ATTR_NOSCAN,
                   attributeValue(hasOdbcEscape(text) ? SQL_NOSCAN_OFF : SQL_NOSCAN_ON),
                   SQL_IS_UINTEGER);
    statement.setHasOneResult(m_abilities.isMariaDb && !mayHaveFurtherResults(text));
    return statement;
}

OdbcHandle OdbcSession::send(const QString &text)
{
    if (!(m_commitKeepsResults && m_rollbackKeepsResults) && endsTransaction(text))
        releaseResults();
    OdbcHandle statement;
    withResultsReleased([&] {
        statement = statementFor(text);
        executeText(statement, text);
    });
    m_rowsAffected = -1;
    if (m_abilities.isMariaDb || !mayHaveFurtherResults(text))
        SQLRowCount(statement.get(), &m_rowsAffected);
    bool hasColumns = false;
    watchFailures([&] { hasColumns = skipToColumns(statement); });
    if (hasColumns)
        return statement;
    if (SQL_SUCCEEDED(SQLFreeStmt(statement.get(), SQL_CLOSE)))
        m_spareStatement = std::move(statement);
    return {};
}

void OdbcSession::withResultsReleased(const std::function<void()> &action)
{
    prepareToSend();
    try {
        watchFailures(action);
        return;
    } catch (const RuntimeError &error) {
        if (!hasOpenResults() || !saysResultsAreOpen(error))
            throw;
    }
    releaseResults();
    watchFailures(action);
}

void OdbcSession::watchFailures(const std::function<void()> &action)
{
    try {
        action();
    } catch (RuntimeError &error) {
        m_isLost |= saysMemoryRanOut(error, m_abilities.isMariaDb);
        if (DriverThread::isCancelWanted() && m_inTransaction && hasLostTransaction()) {
            error.sqlState = u"40000"_s;
            error.description += u"\nAll that was not committed has been rolled back."_s;
        }
        throw;
    }
}

/// What comes next would be committed at once.
bool OdbcSession::hasLostTransaction()
{
    if (!m_abilities.isSqlite)
        return false;
    const OdbcHandle statement(SQL_HANDLE_STMT, m_connection);
    return SQL_SUCCEEDED(SQLExecDirectW(statement.get(), odbcText(u"begin"_s), SQL_NTS));
}

QString OdbcSession::adapted(const QString &text)
{
    if (!m_provider.adapter)
        return text;
    return m_provider.adapter(text, [this](const QString &query) { return scalar(query); });
}

std::unique_ptr<OdbcCursor> OdbcSession::open(const QString &commandText, int rowsPerBlock)
{
    OdbcHandle statement = send(adapted(asProcedureCall(commandText)));
    if (!statement)
        return nullptr;
    return std::make_unique<OdbcCursor>(m_abilities, std::move(statement), rowsPerBlock);
}

QString OdbcSession::scalar(const QString &text)
{
    OdbcHandle statement = send(text);
    if (!statement)
        return {};
    const OdbcCursor cursor(m_abilities, std::move(statement), 1);
    return cursor.atEnd() ? QString() : cursor.value(0).toText();
}

bool OdbcSession::hasOpenResults() const
{
    return std::any_of(m_clients.begin(), m_clients.end(),
                       [](const SessionClient *client) { return client->hasOpenResult(); });
}

void OdbcSession::releaseResults()
{
    for (SessionClient *client : m_clients) {
        if (client->hasOpenResult())
            client->releaseResult();
    }
}

void OdbcSession::addClient(SessionClient *client)
{
    m_clients.push_back(client);
}

void OdbcSession::removeClient(SessionClient *client)
{
    std::erase(m_clients, client);
}
