// Retrieving a million rows in the window, against the toolkit's own SQL query model over ODBC
// that is fetched to its end. On the sandbox's server: a driver that has the whole result in memory
// anyway, such as SQLite's, lets the model fetch none of the values.

#include "dataaccess/providers/providers.h"
#include "support/ServerSample.h"
#include "support/figures.h"
#include "support/inTurn.h"
#include "support/sampleTable.h"
#include "uisupport/RunningProgram.h"

#include <QApplication>
#include <QSqlDatabase>
#include <QSqlQueryModel>

using namespace Qt::StringLiterals;

namespace {

void fetchModel(const QString &query)
{
    QSqlQueryModel model;
    model.setQuery(query);
    while (model.canFetchMore())
        model.fetchMore();
    if (model.rowCount() != sampleRows)
        giveUp(u"The model shows %1 rows."_s.arg(model.rowCount()));
}

} // namespace

int main(int argc, char **argv)
{
    const QApplication application(argc, argv);
    const ProviderSession provider = openProvider(sandboxConnectionString());
    const ServerSample sample(sandboxConnectionString());
    QSqlDatabase database = QSqlDatabase::addDatabase(u"QODBC"_s);
    database.setDatabaseName(provider.odbcConnectionString);
    if (!database.open())
        giveUp(u"The toolkit's ODBC plug-in cannot open the sandbox."_s);
    RunningProgram program(sandboxConnectionString());
    program.setText(sample.query());

    const TwoSides seconds = measureInTurn(
        fewRounds, [&] { fetchModel(sample.query()); },
        [&] {
            program.run();
            program.retrieveAll();
        });
    printFigure(u"SAMPLE: the toolkit's query model"_s, secondsText(seconds.baseline.clock));
    printRatio(u"SAMPLE: window / the toolkit's query model"_s, seconds.ratio(), 0.15);
    return 0;
}
