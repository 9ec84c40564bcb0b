#include "support/sampleTable.h"

#include "support/BareOdbc.h"

#include <QDir>
#include <QFile>

using namespace Qt::StringLiterals;

namespace {

const QString definition =
    u"create table SAMPLE (ID integer, CUSTOMER integer, QUANTITY integer, PRICE double,"
    " SOLD timestamp, PRODUCT varchar(40), CITY varchar(30), REMARK varchar(60))"_s;

const QString filling =
    u"with recursive N(I) as (select 1 union all select I + 1 from N where I < %1) "
    "insert into SAMPLE select I, 100000 + I * 7919 % 900000, I % 100,"
    " (I * 37 % 100000) / 100.0,"
    " datetime('2020-01-01', (I * 61 % 100000000) || ' seconds'),"
    " 'Product number ' || (I * 31 % 5000),"
    " case I % 4 when 0 then 'Rotterdam' when 1 then 'Hamburg' when 2 then 'Antwerpen'"
    " else 'Le Havre' end,"
    " case when I % 10 = 0 then null else 'left the warehouse in ' || (I % 97) || ' days' end"
    " from N"_s;

} // namespace

QString sampleFile()
{
    return databaseFile(u"querna-sample-%1.sqlite"_s.arg(sampleRows),
                        {definition, filling.arg(sampleRows)});
}

QString sampleTable()
{
    return sqliteConnection(sampleFile());
}

QString databaseFile(const QString &name, const QStringList &statements)
{
    const QString path = QDir::temp().filePath(name);
    if (QFile::exists(path))
        return path;
    const QString unfinished = path + u".part"_s;
    QFile::remove(unfinished);
    {
        BareOdbc database(sqliteConnection(unfinished) + u"SyncPragma=OFF;"_s);
        for (const QString &statement : statements)
            database.execute(statement);
    }
    QFile::rename(unfinished, path);
    return path;
}

QString sqliteConnection(const QString &path)
{
    return u"DRIVER=SQLite3;Database=%1;"_s.arg(path);
}
