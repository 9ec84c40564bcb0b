#include "support/coreTest.h"

void SandboxFixture::useSharedFolder()
{
    qputenv(folderVariable, QUERNA_TEST_SANDBOX);
}

QString SandboxFixture::connectionString(const QString &user, const QString &password)
{
    return u"Provider=OrbekSandbox;Data Source=SANDBOX;User ID=%1;Password=%2;"_s.arg(user,
                                                                                      password);
}

std::shared_ptr<Connection> SandboxFixture::logOn(const QString &user, const QString &password)
{
    auto connection = std::make_shared<Connection>();
    connection->Open(connectionString(user, password));
    return connection;
}

std::shared_ptr<Connection> SandboxFixture::open(const QString &user, const QString &password)
{
    useSharedFolder();
    return logOn(user, password);
}

QString SandboxFixture::scalar(const std::shared_ptr<Connection> &connection, const QString &query)
{
    const auto rows = connection->Execute(query);
    return rows->Eof() ? u"(none)"_s : shownText(rows->value(0));
}

QString SandboxFixture::table(const std::shared_ptr<Connection> &connection, const QString &query)
{
    return remainingRows(*connection->Execute(query), u'|').join(u'\n');
}
