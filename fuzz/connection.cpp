// Connection strings and command lines: every item is found, and what was built is read back.

#include "connection/login.h"
#include "dataaccess/providers/providers.h"
#include "dataaccess/text/connectionString.h"
#include "platform/RuntimeError.h"
#include "platform/textForms.h"
#include "support/fuzzing.h"

#include <utility>

using namespace Qt::StringLiterals;

namespace {

using Items = QList<std::pair<QString, QString>>;

/// Reads the value off the front of @p rest, and the `;` behind it.
QString takeValue(QString &rest)
{
    qsizetype end = 0;
    if (trimBlanks(rest).startsWith(u'{')) {
        // Doubled braces out of the way, the first one left closes the value.
        const QString single = QString(rest).replace("}}"_L1, "__"_L1);
        end = single.indexOf(u'}');
    }
    end = end < 0 ? -1 : rest.indexOf(u';', end);
    const QString value = trimBlanks(rest.left(end));
    rest = end < 0 ? QString() : rest.mid(end + 1);
    if (value.size() >= 2 && value.startsWith(u'{') && value.endsWith(u'}'))
        return value.sliced(1).chopped(1).replace("}}"_L1, "}"_L1);
    return value;
}

/// The items of a connection string, all of them and in their order.
Items itemsOf(QString rest)
{
    Items items;
    while (!rest.isEmpty()) {
        const QString piece = rest.left(rest.indexOf(u';'));
        const qsizetype equals = piece.indexOf(u'=');
        if (equals < 0) {
            rest = piece.size() == rest.size() ? QString() : rest.mid(piece.size() + 1);
            continue;
        }
        const QString name = trimBlanks(piece.left(equals));
        rest = rest.mid(equals + 1);
        items.append({name, takeValue(rest)});
    }
    return items;
}

QString firstOf(const Items &items, const QString &name)
{
    for (const auto &[itemName, value] : items) {
        if (itemName.compare(name, Qt::CaseInsensitive) == 0)
            return value;
    }
    return {};
}

void checkItems(const QString &text)
{
    const ConnectionString read(text);
    const Items items = itemsOf(text);
    for (const auto &[name, value] : items) {
        require(read.contains(name), "every item is there");
        requireEqual(read.value(name), firstOf(items, name), "the first item of a name counts");
    }
}

/// What goes to the driver manager without the item that names the provider.
void checkOdbcItems(const QString &text)
{
    const QString odbc = openProvider(u"Provider=MSDASQL;"_s + text).odbcConnectionString;
    const ConnectionString read(odbc);
    require(!read.contains(u"Provider"), "the provider's item is taken out");
    const Items items = itemsOf(text);
    for (const auto &[name, value] : items) {
        if (name.compare("Provider"_L1, Qt::CaseInsensitive) != 0)
            requireEqual(read.value(name), firstOf(items, name), "every other item stays");
    }
}

void checkBraces(const QString &value)
{
    const QString braced = u'{' + QString(value).replace(u'}', u"}}"_s) + u'}';
    const ConnectionString read(u"a="_s + braced + u";b="_s + braced);
    requireEqual(read.value(u"A"), value, "braces hold any value");
    requireEqual(read.value(u"B"), value, "braces end where they close");
}

/// Whether a login dialog's text is one that is found again; nothing is quoted in a command line.
bool isPlain(const QString &name)
{
    const QString upper = name.toUpper();
    return !name.contains(u';') && !name.contains(u'"') && !upper.contains("USER ID"_L1) &&
           !upper.contains("DATA SOURCE"_L1);
}

void checkCommandLine(const QString &user, const QString &database)
{
    for (const qint16 driver : {LoginDriver::MicrosoftOleDb, LoginDriver::OracleOleDb}) {
        const QString built = loginConnectionString(user, u"x"_s, database, driver, 0);
        const QString cleaned = cleanedCommandLine(u" \""_s + built + u"\" "_s);
        requireEqual(cleanedCommandLine(cleaned), cleaned, "a cleaned command line stays");
        QString readUser;
        QString readDatabase;
        readLoginNames(cleaned, readUser, readDatabase);
        require(!readUser.contains(u';') && cleaned.contains(readUser), "a name is in the text");
        if (isPlain(user) && isPlain(database)) {
            requireEqual(readUser, user, "the user is read back");
            requireEqual(readDatabase, database, "the database is read back");
        }
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    const QString text = textOf(data, size);
    checkItems(text);
    checkOdbcItems(text);
    checkBraces(text);
    const QList<QString> names = textsOf(data, size, 2);
    checkCommandLine(names[0], names[1]);
    return 0;
}
