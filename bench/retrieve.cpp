// Retrieving all rows of a query into an in-memory recordset, against a bare ODBC loop that throws
// the values away.
//
//     bench_retrieve [connection string, query]

#include "dataaccess/Connection.h"
#include "dataaccess/Recordset.h"
#include "dataaccess/providers.h"
#include "support/BareOdbc.h"
#include "support/inTurn.h"
#include "support/sampleTable.h"

#include <QCoreApplication>
#include <QStringList>

#include <cstdio>

using namespace Qt::StringLiterals;

namespace {

constexpr int rounds = 5;
constexpr int rowsPerBlock = 100;
constexpr qint64 sampleRows = 1'000'000;

/// Copies every row of @p query as the result grid does it, without a grid.
std::unique_ptr<Recordset> retrieveAll(const std::shared_ptr<Connection> &connection,
                                       const QString &query)
{
    Recordset source;
    source.setCacheSize(rowsPerBlock);
    source.Open(query, connection);
    auto rows = std::make_unique<Recordset>();
    for (int field = 0; field < source.fieldCount(); ++field)
        rows->appendField(source.fieldName(field), adVariant);
    rows->Open();
    for (; !source.Eof(); source.MoveNext())
        rows->addNewFrom(source);
    return rows;
}

/// Bytes of the UTF-8 text of all cells.
qint64 textBytes(const Recordset &rows)
{
    qint64 bytes = 0;
    QString text;
    for (qint64 row = 0; row < rows.RecordCount(); ++row) {
        text.clear();
        rows.appendRowText(row, 0, rows.fieldCount() - 1, QChar(u'\t'), text);
        bytes += text.toUtf8().size() - (rows.fieldCount() - 1);
    }
    return bytes;
}

} // namespace

int main(int argc, char **argv)
{
    const QCoreApplication application(argc, argv);
    const QStringList arguments = QCoreApplication::arguments();
    const bool isGiven = arguments.size() == 3;
    const QString connectionString = isGiven ? arguments[1] : sampleTable(sampleRows);
    const QString query = isGiven ? arguments[2] : u"select * from SAMPLE"_s;

    const ProviderSession provider = openProvider(connectionString);
    BareOdbc bare(provider.odbcConnectionString);
    const auto connection = std::make_shared<Connection>();
    connection->Open(connectionString);

    std::unique_ptr<Recordset> rows;
    const TwoSides seconds = measureInTurn(
        rounds, [&] { bare.retrieve(query, rowsPerBlock); },
        [&] {
            rows.reset();
            rows = retrieveAll(connection, query);
        });

    const auto count = static_cast<double>(rows->RecordCount());
    std::printf("rows %.0f  bare loop %.3f s  into memory %.3f s  ratio %.3f\n", count,
                seconds.baseline, seconds.ours, seconds.ratio());
    const auto text = static_cast<double>(textBytes(*rows));
    const auto stored = static_cast<double>(rows->storedBytes());
    std::printf("bytes a row: text %.1f  stored %.1f  ratio %.3f\n", text / count, stored / count,
                stored / text);
    return 0;
}
