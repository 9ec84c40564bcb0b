// Retrieving a million rows in the window, against the toolkit's own SQL query model over ODBC
// that is fetched to its end.

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
    const QString query = u"select * from SAMPLE"_s;
    QSqlDatabase database = QSqlDatabase::addDatabase(u"QODBC"_s);
    database.setDatabaseName(sampleTable());
    if (!database.open())
        giveUp(u"The toolkit's ODBC plug-in cannot open the sample table."_s);
    RunningProgram program(sampleTable());
    program.setText(query);

    const TwoSides seconds = measureInTurn(
        fewRounds, [&] { fetchModel(query); },
        [&] {
            program.run();
            program.retrieveAll();
        });
    printFigure(u"SAMPLE: the toolkit's query model"_s, secondsText(seconds.baseline.clock));
    printRatio(u"SAMPLE: window / the toolkit's query model"_s, seconds.ratio(), 0.15);
    return 0;
}
