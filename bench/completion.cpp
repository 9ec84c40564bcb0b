// The list of names that Ctrl+Space shows, on a schema of ten thousand tables: from the key to the
// painted list, in the program's window. The dictionary is tables of a SQLite database in memory.

#include "connection/session.h"
#include "controls/editor/EditorControl.h"
#include "support/figures.h"
#include "support/inTurn.h"
#include "uisupport/PaintWatch.h"
#include "uisupport/RunningProgram.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QTest>

#include <algorithm>
#include <vector>

using namespace Qt::StringLiterals;

namespace {

constexpr int tables = 10'000;
constexpr double longestWaitMilliseconds = 50;

void makeDictionary()
{
    for (const QString &statement :
         {u"attach database ':memory:' as SYS"_s, u"create table SYS.ALL_USERS (username)"_s,
          u"create table SYS.ALL_TABLES (owner, table_name)"_s,
          u"create table SYS.ALL_TAB_COLUMNS (owner, table_name, column_name)"_s,
          u"insert into SYS.ALL_USERS values ('SCOTT')"_s,
          u"with recursive n (i) as (select 0 union all select i + 1 from n where i < %1) "
          "insert into SYS.ALL_TABLES select 'SCOTT', 'TABLE_' || (i * 7919 % 10007) from n"_s.arg(
              tables - 1)})
        gConnection->Execute(statement);
}

QAbstractItemView *list()
{
    for (QWidget *window : QApplication::topLevelWidgets()) {
        if (window->objectName() == "lstCompletions"_L1)
            return qobject_cast<QAbstractItemView *>(window);
    }
    giveUp(u"There is no list."_s);
}

/// Milliseconds from the key to the list that it paints, over so many rounds.
double median(int rounds, const std::function<void()> &prepare, const std::function<void()> &press)
{
    std::vector<double> times;
    for (int round = 0; round < rounds; ++round) {
        prepare();
        PaintWatch watch(list()->viewport());
        times.push_back(spentOn([&] {
                            press();
                            watch.wait();
                        }).clock *
                        1000);
    }
    std::nth_element(times.begin(), times.begin() + rounds / 2, times.end());
    return times[static_cast<std::size_t>(rounds / 2)];
}

} // namespace

int main(int argc, char **argv)
{
    const QApplication application(argc, argv);
    RunningProgram program(sqlite);
    makeDictionary();
    program.setText(u"select * from scott."_s);
    EditorControl *editor = program.fixture().text();
    const auto close = [] { list()->hide(); };
    const auto complete = [&] {
        editor->setSelStart(editor->textLength());
        QTest::keyClick(editor, Qt::Key_Space, Qt::ControlModifier);
    };
    printFigure(u"completion among 10,000 tables, the first time"_s,
                QString::number(median(1, close, complete), 'f', 1) + u" ms"_s);
    if (list()->model()->rowCount() != tables)
        giveUp(u"The list has %1 names."_s.arg(list()->model()->rowCount()));
    printMilliseconds(u"completion among 10,000 tables, from then on"_s,
                      median(manyRounds, close, complete), longestWaitMilliseconds);
    printMilliseconds(u"a key that narrows the list"_s,
                      median(
                          manyRounds,
                          [&] {
                              program.setText(u"select * from scott."_s);
                              complete();
                              QCoreApplication::processEvents();
                          },
                          [] { QTest::keyClick(list(), Qt::Key_T); }),
                      longestWaitMilliseconds);
    return 0;
}
