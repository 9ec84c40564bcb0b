#include "support/SandboxFixture.h"

#include "dataaccess/Connection.h"
#include "dataaccess/Recordset.h"

#include <QStringList>

using namespace Qt::StringLiterals;

namespace {

QString shown(const Value &value)
{
    return value.isNull() ? u"(null)"_s : value.toText();
}

} // namespace

void SandboxFixture::useSharedFolder()
{
    qputenv(folderVariable, QUERNA_TEST_SANDBOX);
}

QString SandboxFixture::connectionString(const QString &user, const QString &password)
{
    return u"Provider=OrbekSandbox;Data Source=SANDBOX;User ID=%1;Password=%2;"_s.arg(user,
                                                                                      password);
}

std::shared_ptr<Connection> SandboxFixture::open(const QString &user, const QString &password)
{
    useSharedFolder();
    auto connection = std::make_shared<Connection>();
    connection->Open(connectionString(user, password));
    return connection;
}

QString SandboxFixture::scalar(const std::shared_ptr<Connection> &connection, const QString &query)
{
    const auto rows = connection->Execute(query);
    return rows->Eof() ? u"(none)"_s : shown(rows->value(0));
}

QString SandboxFixture::table(const std::shared_ptr<Connection> &connection, const QString &query)
{
    QStringList lines;
    for (const auto rows = connection->Execute(query); !rows->Eof(); rows->MoveNext()) {
        QStringList fields;
        for (int field = 0; field < rows->fieldCount(); ++field)
            fields.append(shown(rows->value(field)));
        lines.append(fields.join(u'|'));
    }
    return lines.join(u'\n');
}
