#pragma once

#include <QString>

#include <sql.h>
#include <sqlext.h>

/// The least that a program can do with ODBC: run a query with every column bound, a block of rows
/// in one call, and throw the values away; send a statement; read lines through a prepared call.
/// What everything else is compared to.
class BareOdbc
{
public:
    explicit BareOdbc(const QString &odbcConnectionString);
    ~BareOdbc();
    BareOdbc(const BareOdbc &) = delete;
    BareOdbc &operator=(const BareOdbc &) = delete;

    /// Runs a statement without rows.
    void execute(const QString &text);
    /// Turns autocommit off; rollback() takes back what was done since.
    void beginTransactions();
    void rollback();
    /// Executes @p call over and over, which gives a text and a number, until the number is not 0.
    /// @returns the number of texts
    qint64 readLines(const QString &call);
    /// @returns the number of rows
    qint64 retrieve(const QString &query, SQLULEN rowsPerBlock);

private:
    SQLHANDLE m_environment = nullptr;
    SQLHANDLE m_connection = nullptr;
    SQLHANDLE m_statement = nullptr; ///< that execute() uses again and again
};
