#include "dataaccess/providers.h"

#include "dataaccess/connectionString.h"
#include "dataaccess/odbc/driverAdvice.h"
#include "dataaccess/odbc/installedDrivers.h"
#include "dataaccess/sandbox/Sandbox.h"
#include "platform/RuntimeError.h"
#include "platform/settings.h"

#include <QStringList>

#include <algorithm>

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

QString oracleDriver()
{
    QString chosen = getSetting(u"Orbek Oracle"_s, u"Settings"_s, u"OracleDriver"_s);
    if (!chosen.isEmpty())
        return chosen;
    const QStringList drivers = installedDrivers();
    const auto found = std::find_if(drivers.begin(), drivers.end(), [](const QString &name) {
        return name.contains("Oracle"_L1, Qt::CaseInsensitive);
    });
    if (found == drivers.end()) {
        throw RuntimeError(
            ErrorNumber::ProviderNotFound,
            u"The ODBC driver for Oracle is not installed: the driver manager knows none whose "
            "name contains \"Oracle\". "_s +
                oracleDriverAdvice());
    }
    return *found;
}

ProviderSession openOracle(const ConnectionString &items)
{
    return {u"DRIVER={%1};DBQ=%2;UID=%3;PWD=%4;FBS=%5"_s.arg(
                oracleDriver(), quoted(items.value(u"Data Source")),
                quoted(items.value(u"User ID")), quoted(items.value(u"Password")),
                QString::number(oracleFetchBufferBytes)),
            nullptr, nullptr};
}

} // namespace

ProviderSession openProvider(const QString &connectionString)
{
    const ConnectionString items(connectionString);
    const QString provider = items.value(u"Provider").toLower();
    if (provider.isEmpty())
        return {connectionString, nullptr, nullptr};
    if (provider == "msdasql"_L1)
        return {items.textWithout(u"Provider"), nullptr, nullptr};
    if (provider == "msdaora"_L1 || provider == "oraoledb.oracle"_L1)
        return openOracle(items);
    if (isSandbox(items))
        return openSandbox(items);
    throw RuntimeError(ErrorNumber::ProviderNotFound);
}
