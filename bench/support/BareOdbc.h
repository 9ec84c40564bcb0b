#pragma once

#include <QString>

#include <sql.h>
#include <sqlext.h>

/// The least that a program can do with ODBC: run a query with every column bound, a block of rows
/// in one call, and throw the values away. What everything else is compared to.
class BareOdbc
{
public:
    explicit BareOdbc(const QString &odbcConnectionString);
    ~BareOdbc();
    BareOdbc(const BareOdbc &) = delete;
    BareOdbc &operator=(const BareOdbc &) = delete;

    /// Runs a statement without rows.
    void execute(const QString &text);
    /// @returns the number of rows
    qint64 retrieve(const QString &query, SQLULEN rowsPerBlock);

private:
    SQLHANDLE m_environment = nullptr;
    SQLHANDLE m_connection = nullptr;
};
