#include "support/ServerSample.h"

#include "dataaccess/providers/providers.h"
#include "support/BareOdbc.h"
#include "support/sampleTable.h"

using namespace Qt::StringLiterals;

namespace {

const QString definition =
    u"create or replace table bench_sample (ID int, CUSTOMER number(12), QUANTITY number(8, 2),"
    " PRICE double, SOLD datetime, PRODUCT varchar(40), CITY varchar(30), REMARK varchar(60))"_s;

const QString filling =
    u"insert into bench_sample select seq, 100000 + mod(seq * 7919, 900000),"
    " mod(seq, 10000) / 100, mod(seq * 37, 100000) / 100.0,"
    " date_add('2020-01-01', interval mod(seq * 61, 100000000) second),"
    " concat('Product number ', mod(seq * 31, 5000)),"
    " case mod(seq, 4) when 0 then 'Rotterdam' when 1 then 'Hamburg' when 2 then 'Antwerpen'"
    " else 'Le Havre' end,"
    " case when mod(seq, 10) = 0 then null"
    " else concat('left the warehouse in ', mod(seq, 97), ' days') end"
    " from seq_1_to_%1"_s;

} // namespace

ServerSample::ServerSample(const QString &connectionString)
    : m_provider(openProvider(connectionString))
{
    BareOdbc database(m_provider.odbcConnectionString);
    database.execute(definition);
    database.execute(filling.arg(sampleRows));
}

ServerSample::~ServerSample()
{
    BareOdbc(m_provider.odbcConnectionString).execute(u"drop table bench_sample"_s);
}

QString ServerSample::query() const
{
    return u"select * from bench_sample"_s;
}
