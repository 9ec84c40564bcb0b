#include "dataaccess/providers/providers.h"

#include "dataaccess/sandbox/Sandbox.h"
#include "dataaccess/text/connectionString.h"
#include "platform/RuntimeError.h"
#include "platform/settings.h"

#include <algorithm>
#include <utility>

using namespace Qt::StringLiterals;

namespace {

/// Bytes that one fetch from the server may bring. The driver's own 60,000 are too few for a block
/// of wide rows.
constexpr int oracleFetchBufferBytes = 1'000'000;

/// A value as it stands in an ODBC connection string.
QString quoted(const QString &value)
{
    static const QString special = u"[]{}(),;?*=!@"_s;
    const bool isPlain =
        std::none_of(value.begin(), value.end(), [](QChar c) { return special.contains(c); });
    return isPlain ? value : inBraces(value);
}

#ifdef Q_OS_WIN
const QString oracleAdvice = u"Install Oracle Instant Client for 64-bit Windows with its ODBC "
                             "package and run the package's odbc_install.exe."_s;
#else
const QString oracleAdvice =
    u"Install Oracle Instant Client with its ODBC package and register the driver with odbcinst "
    "(or with the package's odbc_update_ini.sh)."_s;
#endif

QString oracleDriver()
{
    QString driver = getSetting(u"Orbek Oracle"_s, u"Settings"_s, u"OracleDriver"_s);
    if (driver.isEmpty())
        driver = installedDriver(u"Oracle");
    if (driver.isEmpty()) {
        throw RuntimeError(
            ErrorNumber::ProviderNotFound,
            u"The ODBC driver for Oracle is not installed: the driver manager knows none whose "
            "name contains \"Oracle\". "_s +
                oracleAdvice);
    }
    return driver;
}

ProviderSession openOracle(const ConnectionString &items)
{
    return {u"DRIVER={%1};DBQ=%2;UID=%3;PWD=%4;FBS=%5"_s.arg(
        oracleDriver(), quoted(items.value(u"Data Source")), quoted(items.value(u"User ID")),
        quoted(items.value(u"Password")), QString::number(oracleFetchBufferBytes))};
}

ProviderProgress progressListener;

} // namespace

void setProviderProgress(ProviderProgress progress)
{
    progressListener = std::move(progress);
}

ProviderSession openProvider(const QString &connectionString)
{
    const ConnectionString items(connectionString);
    const QString provider = items.value(u"Provider").toLower();
    if (provider.isEmpty())
        return {connectionString};
    if (provider == "msdasql"_L1)
        return {items.textWithout(u"Provider")};
    if (provider == "msdaora"_L1 || provider == "oraoledb.oracle"_L1)
        return openOracle(items);
    if (isSandbox(items))
        return openSandbox(items, progressListener);
    throw RuntimeError(ErrorNumber::ProviderNotFound);
}
