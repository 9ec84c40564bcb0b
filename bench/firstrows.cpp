// Run, to the first 25 rows on the screen: how much longer a table of ten million rows takes than
// one of a thousand. The driver is told to fetch row by row and to leave transactions alone; by
// default, and inside a transaction, it reads the whole result before it gives the first row.

#include "controls/grids/DataGrid.h"
#include "support/figures.h"
#include "support/inTurn.h"
#include "support/sampleTable.h"
#include "uisupport/PaintWatch.h"
#include "uisupport/RunningProgram.h"

#include <QApplication>

using namespace Qt::StringLiterals;

namespace {

QString twoTables()
{
    const QString definition = u"create table %1 (ID integer, PRODUCT varchar(40))"_s;
    const QString filling =
        u"with recursive N(I) as (select 1 union all select I + 1 from N where I < %1)"
        " insert into %2 select I, 'Product number ' || (I * 31 % 5000) from N"_s;
    return databaseFile(u"querna-two-tables.sqlite"_s,
                        {definition.arg(u"SMALL"_s), filling.arg(u"1000"_s, u"SMALL"_s),
                         definition.arg(u"LARGE"_s), filling.arg(u"10000000"_s, u"LARGE"_s)});
}

} // namespace

int main(int argc, char **argv)
{
    const QApplication application(argc, argv);
    RunningProgram program(sqliteConnection(twoTables()) + u"StepAPI=1;NoTXN=1;"_s);
    PaintWatch grid(program.fixture().grid()->viewport());
    const auto showFirstRows = [&](const QString &table) {
        program.setText(u"select * from "_s + table);
        program.run();
        grid.wait();
    };

    const TwoSides seconds = measureInTurn(
        manyRounds, [&] { showFirstRows(u"SMALL"_s); }, [&] { showFirstRows(u"LARGE"_s); });
    printFigure(u"first rows on the screen, table of 1,000 rows"_s,
                secondsText(seconds.baseline.clock));
    printRatio(u"first rows on the screen, 10,000,000 rows / 1,000 rows"_s, seconds.ratio(), 1.5);
    return 0;
}
