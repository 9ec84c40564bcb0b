// Retrieving all rows of a query into an in-memory recordset, against a bare ODBC loop that throws
// the values away.
//
//     bench_retrieve [connection string, query]

#include "dataaccess/Connection.h"
#include "dataaccess/Recordset.h"
#include "dataaccess/providers/providers.h"
#include "support/BareOdbc.h"
#include "support/figures.h"
#include "support/inTurn.h"
#include "support/memory.h"
#include "support/retrieval.h"
#include "support/sampleTable.h"

#include <QCoreApplication>
#include <QStringList>

using namespace Qt::StringLiterals;

int main(int argc, char **argv)
{
    const QCoreApplication application(argc, argv);
    const QStringList arguments = QCoreApplication::arguments();
    const bool isGiven = arguments.size() == 3;
    const QString connectionString = isGiven ? arguments[1] : sampleTable();
    const QString query = isGiven ? arguments[2] : u"select * from SAMPLE"_s;

    const ProviderSession provider = openProvider(connectionString);
    BareOdbc bare(provider.odbcConnectionString);
    const auto connection = std::make_shared<Connection>();
    connection->Open(connectionString);

    std::unique_ptr<Recordset> rows;
    const TwoSides seconds = measureInTurn(
        fewRounds, [&] { bare.retrieve(query, rowsPerBlock); },
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
