// Retrieving all rows of a query into an in-memory recordset, against a bare ODBC loop that throws
// the values away.
//
//     bench_retrieve [connection string, query]

#include "dataaccess/Connection.h"
#include "dataaccess/Recordset.h"
#include "dataaccess/providers.h"
#include "support/BareOdbc.h"
#include "support/figures.h"
#include "support/inTurn.h"
#include "support/memory.h"
#include "support/sampleTable.h"

#include <QCoreApplication>
#include <QStringList>

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

    const QString name = isGiven ? u"the query"_s : u"SAMPLE"_s;
    printFigure(name + u": into memory, without a window"_s, secondsText(seconds.ours.clock));
    printRatio(name + u": into memory / bare loop"_s, seconds.ratio());
    printRatio(name + u": the same in processor time of this process"_s, seconds.processorRatio());
    printRatio(name + u": bytes stored / text of the cells"_s,
               static_cast<double>(rows->storedBytes()) / static_cast<double>(textBytes(*rows)));
    return 0;
}
