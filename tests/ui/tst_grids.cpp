#include "controls/forms/FramePacer.h"
#include "controls/grids/CellViewer.h"
#include "controls/grids/ColumnTree.h"
#include "controls/grids/DataGrid.h"
#include "controls/grids/FlexGrid.h"
#include "controls/grids/GridOrder.h"
#include "controls/grids/GridSearch.h"
#include "platform/longWait.h"
#include "uisupport/uiTest.h"

namespace {

using RecordsetPtr = std::shared_ptr<Recordset>;

void addRow(const RecordsetPtr &recordset, const QList<Value> &values)
{
    recordset->AddNew();
    for (int i = 0; i < values.size(); ++i)
        recordset->setValue(i, values[i]);
}

/// Rows and columns of texts "r.c".
RecordsetPtr numberedCells(int rows, int columns)
{
    QList<TableColumn> names;
    for (int c = 0; c < columns; ++c)
        names += {u"C%1"_s.arg(c)};
    QList<QList<Value>> values(rows);
    for (int r = 0; r < rows; ++r) {
        for (int c = 0; c < columns; ++c)
            values[r] += Value(u"%1.%2"_s.arg(r).arg(c));
    }
    return makeTable(names, values);
}

QString shown(const DataGrid &grid, int row, int column)
{
    const QVariant value = grid.model()->index(row, column).data();
    return static_cast<QStyledItemDelegate *>(grid.itemDelegate())
        ->displayText(value, grid.locale());
}

struct Cells
{
    int top, left, bottom, right;
};
using CellsList = QList<Cells>;

} // namespace

class tst_grids : public QObject
{
    Q_OBJECT
private slots:
    void gridShowsItsRecordset();
    void gridIsEmptyWithoutRows();
    void gridTakesAddedRowsInBatches();
    void gridFitsWidthsOnce();
    void gridShowsLongTextsOnOneLine_data();
    void gridShowsLongTextsOnOneLine();
    void selectionAsText_data();
    void selectionAsText();
    void headerClicksOrderTheRows();
    void menuCopies_data();
    void menuCopies();
    void cellsAreViewedWhole();
    void findsInTheRows();
    void flexGridCountsFixedCellsAndPicksRows();
    void treeColumns();
};

void tst_grids::gridShowsItsRecordset()
{
    DataGrid grid;
    grid.setDataSource(
        makeTable({{u"NAME"_s}, {u"SAL"_s}, {u"NONE"_s}},
                  {{u"SMITH"_s, ExactNumber{u"800.5"_s}, NullValue{}}, {u"JONES"_s, 1, 7}}));

    const QAbstractItemModel &model = *grid.model();
    QCOMPARE(model.rowCount(), 2);
    QCOMPARE(model.headerData(1, Qt::Horizontal).toString(), u"SAL"_s);
    QCOMPARE(model.index(0, 0).data().toString(), u"SMITH"_s);
    QCOMPARE(model.index(0, 1).data().toString(), u"800.5"_s);
    QCOMPARE(model.index(0, 2).data().toString(), QString());
    QVERIFY(!model.index(0, 0).data(Qt::TextAlignmentRole).isValid());
    for (const QVariant &alignment : {model.index(0, 1).data(Qt::TextAlignmentRole),
                                      model.headerData(2, Qt::Horizontal, Qt::TextAlignmentRole)})
        QVERIFY(alignment.toInt() & Qt::AlignRight);
}

// Whether it was so from the beginning or has been closed under the grid.
void tst_grids::gridIsEmptyWithoutRows()
{
    const RecordsetPtr closed = numberedCells(50, 3);
    for (const RecordsetPtr &recordset :
         {RecordsetPtr(), std::make_shared<Recordset>(), makeTable({{u"A"_s}}, {}), closed}) {
        DataGrid grid;
        grid.setDataSource(numberedCells(3, 2));
        grid.setDataSource(recordset);
        grid.selectAll();
        grid.show();
        QVERIFY(QTest::qWaitForWindowExposed(&grid));
        if (recordset == closed)
            closed->Close();
        grid.grab();
        QVERIFY(!grid.model()->index(1, 1).data().isValid());
        QCOMPARE(grid.SelText(), QString());
        grid.showAddedRows();
        QCOMPARE(grid.model()->rowCount(), 0);
        QCOMPARE(grid.dataSource(), recordset);
    }
}

void tst_grids::gridTakesAddedRowsInBatches()
{
    const RecordsetPtr recordset = numberedCells(25, 2);
    DataGrid grid;
    grid.resize(300, 200);
    grid.setDataSource(recordset);
    grid.show();
    QVERIFY(QTest::qWaitForWindowExposed(&grid));
    QSignalSpy inserted(grid.model(), &QAbstractItemModel::rowsInserted);

    FramePacer pacer([&] { grid.showAddedRows(); }, &grid);
    QElapsedTimer time;
    time.start();
    constexpr int added = 20000;
    for (int i = 0; i < added; ++i) {
        addRow(recordset, {Value(i), Value(i)});
        pacer.request();
        yieldToEvents();
    }
    const qint64 frames = time.elapsed() / 15 + 1;
    pacer.flush();

    QVERIFY2(inserted.count() <= frames + 1,
             qPrintable(u"%1 in %2 frames"_s.arg(inserted.count()).arg(frames)));
    QCOMPARE(grid.model()->rowCount(), added + 25);
    QCOMPARE(grid.model()->index(added + 24, 0).data().toString(), QString::number(added - 1));
    grid.scrollToBottom();
    const QModelIndex last = grid.model()->index(added + 24, 0);
    QVERIFY(grid.viewport()->rect().contains(grid.visualRect(last).center()));
    grid.showAddedRows();
    QCOMPARE(grid.model()->rowCount(), added + 25);
}

void tst_grids::gridFitsWidthsOnce()
{
    const RecordsetPtr recordset = makeTable({{u"A"_s}, {u"LONG_COLUMN_NAME"_s}, {u"TEXT"_s}}, {});
    DataGrid grid;
    grid.setDataSource(recordset);
    const int beforeRows = grid.columnWidth(0);
    addRow(recordset, {Value(u"wider than its name"_s), Value(1), Value(QString(5000, u'x'))});
    grid.showAddedRows();
    const QFontMetrics metrics = grid.fontMetrics();
    QVERIFY(grid.columnWidth(0) > beforeRows);
    QVERIFY(grid.columnWidth(0) > metrics.horizontalAdvance(u"wider than its name"_s));
    QVERIFY(grid.columnWidth(1) >
            grid.horizontalHeader()->fontMetrics().horizontalAdvance(u"LONG_COLUMN_NAME"_s));
    QVERIFY(grid.columnWidth(2) < 500);

    grid.setColumnWidth(0, 77);
    addRow(recordset, {Value(u"wider still than the first of all rows"_s), Value(1), Value(1)});
    grid.showAddedRows();
    QCOMPARE(grid.columnWidth(0), 77);

    // The same columns again, even when a result without any came between, are as wide.
    grid.setDataSource(std::make_shared<Recordset>());
    grid.setDataSource(makeTable({{u"A"_s}, {u"LONG_COLUMN_NAME"_s}, {u"TEXT"_s}}, {{1, 2, 3}}));
    QCOMPARE(grid.columnWidth(0), 77);
    grid.setDataSource(makeTable({{u"A"_s}, {u"TEXT"_s}, {u"LONG_COLUMN_NAME"_s}}, {{1, 2, 3}}));
    QVERIFY(grid.columnWidth(0) != 77);
}

void tst_grids::gridShowsLongTextsOnOneLine_data()
{
    const DataRows<Value, QString> row("value", "start");
    const QString code = u"begin\r\n\tnull;\nend;"_s;
    const QString codeOnOneLine = u"begin\u21B5 null;\u21B5end;"_s;
    row("text", Value(code + QString(100000, u'x')), codeOnOneLine + u"xxx"_s);
    row("text beyond Latin-1", Value(code + QString(100000, u'\u0416')),
        codeOnOneLine + u"\u0416\u0416"_s);
    row("binary", Value(QByteArray(100000, '\x1f')), u"1F1F1F"_s);
}

void tst_grids::gridShowsLongTextsOnOneLine()
{
    QFETCH(Value, value);
    QFETCH(QString, start);
    DataGrid grid;
    grid.setDataSource(makeTable({{u"A"_s}, {u"B"_s}}, {{value, u"last"_s}, {1, 2}}));
    const QString text = shown(grid, 0, 0);
    QCOMPARE(text.left(start.size()), start);
    QVERIFY(text.size() < 1000);
    QVERIFY(text.endsWith(QChar(0x2026)));
    QCOMPARE(shown(grid, 0, 1), u"last"_s);
    grid.selectionModel()->select(grid.model()->index(0, 0), QItemSelectionModel::Select);
    QCOMPARE(grid.SelText(), value.toText());
}

void tst_grids::selectionAsText_data()
{
    const DataRows<CellsList, QString> row("selected", "text");
    row("nothing", CellsList{}, QString());
    row("one cell", CellsList{{1, 1, 1, 1}}, u"1.1"_s);
    row("block", CellsList{{1, 0, 2, 1}}, u"1.0\t1.1\r\n2.0\t2.1"_s);
    row("rows picked upwards", CellsList{{3, 0, 3, 1}, {1, 0, 1, 1}}, u"1.0\t1.1\r\n3.0\t3.1"_s);
    row("diagonal", CellsList{{0, 0, 0, 0}, {2, 2, 2, 2}}, u"0.0\t\r\n\t2.2"_s);
    row("overlapping blocks", CellsList{{0, 0, 1, 1}, {1, 1, 2, 2}},
        u"0.0\t0.1\t\r\n1.0\t1.1\t1.2\r\n\t2.1\t2.2"_s);
    row("wide gap within a row", CellsList{{0, 0, 0, 3}, {1, 3, 1, 3}},
        u"0.0\t0.1\t0.2\t0.3\r\n\t\t\t1.3"_s);
}

void tst_grids::selectionAsText()
{
    QFETCH(CellsList, selected);
    DataGrid grid;
    grid.setDataSource(numberedCells(4, 4));
    for (const Cells &cells : selected) {
        const QItemSelection block(grid.model()->index(cells.top, cells.left),
                                   grid.model()->index(cells.bottom, cells.right));
        grid.selectionModel()->select(block, QItemSelectionModel::Select);
    }
    QTEST(grid.SelText(), "text");
    // Copying nothing leaves the clipboard as it is.
    QGuiApplication::clipboard()->setText(u"kept"_s);
    QTest::keySequence(&grid, QKeySequence::Copy);
    QCOMPARE(QGuiApplication::clipboard()->text(), selected.isEmpty() ? u"kept"_s : grid.SelText());
}

void tst_grids::headerClicksOrderTheRows()
{
    const auto table = [] {
        return makeTable({{u"N"_s}, {u"T"_s}}, {{9, u"b"_s}, {10, u"a"_s}, {u""_s, u"c"_s}});
    };
    const RecordsetPtr rows = table();
    DataGrid grid;
    grid.setDataSource(rows);
    grid.show();
    QVERIFY(QTest::qWaitForWindowExposed(&grid));
    const auto click = [&](int column, Qt::KeyboardModifiers modifiers = {}) {
        const QPoint place(grid.columnViewportPosition(column) + 5, 5);
        QTest::mouseClick(grid.horizontalHeader()->viewport(), Qt::LeftButton, modifiers, place);
    };
    const auto all = [&] {
        grid.selectAll();
        return grid.SelText().replace(u"\r\n"_s, u" "_s).replace(u'\t', u',');
    };
    click(0);
    QCOMPARE(all(), u"9,b 10,a ,c"_s);
    QCOMPARE(grid.horizontalHeader()->sortIndicatorSection(), 0);
    click(0);
    QCOMPARE(all(), u"10,a 9,b ,c"_s);
    click(1, Qt::ControlModifier);
    QCOMPARE(all(), u"10,a 9,b ,c"_s);
    QCOMPARE(grid.horizontalHeader()->sortIndicatorSection(), 0);
    // What arrives later comes after what is ordered.
    addRow(rows, {Value(100), Value(u"z"_s)});
    grid.showAddedRows();
    QCOMPARE(all(), u"10,a 9,b ,c 100,z"_s);
    QCOMPARE(rows->textAt(0, 0), u"9"_s);
    click(0);
    QCOMPARE(all(), u"9,b 10,a ,c 100,z"_s);
    QCOMPARE(grid.horizontalHeader()->sortIndicatorSection(), -1);
    click(1);
    QCOMPARE(all(), u"10,a 9,b ,c 100,z"_s);
    grid.setDataSource(table());
    QCOMPARE(all(), u"9,b 10,a ,c"_s);
    QCOMPARE(grid.horizontalHeader()->sortIndicatorSection(), -1);
    grid.dataSource()->Close();
    click(1); // nothing to order, and nothing goes wrong
}

void tst_grids::menuCopies_data()
{
    const DataRows<QString, QString> row("item", "copied");
    row("copy", u"mnuGridCopy"_s, u"2\tb\r\n1\ta"_s);
    row("with names", u"mnuGridCopyWithNames"_s, u"N\tT\r\n2\tb\r\n1\ta"_s);
    row("inserts", u"mnuGridCopyInsert"_s,
        u"Insert into TABLE_NAME (N,T) VALUES (2,'b');\r\n"
        "Insert into TABLE_NAME (N,T) VALUES (1,'a');\r\n"_s);
    row("list", u"mnuGridCopyList"_s, u"((2,'b'),(1,'a'))"_s);
}

void tst_grids::menuCopies()
{
    QFETCH(QString, item);
    DataGrid grid;
    grid.setDataSource(
        makeTable({{u"ID"_s}, {u"N"_s}, {u"T"_s}}, {{7, 1, u"a"_s}, {8, 2, u"b"_s}}));
    grid.rowOrder().advance(1);
    grid.rowOrder().advance(1);
    grid.selectionModel()->select(
        QItemSelection(grid.model()->index(0, 1), grid.model()->index(1, 2)),
        QItemSelectionModel::Select);
    grid.findChild<QAction *>(item)->trigger();
    QTEST(QGuiApplication::clipboard()->text(), "copied");
}

void tst_grids::cellsAreViewedWhole()
{
    DataGrid grid;
    const QString text = QString(3 * ValueParts::partSize - 1, u'x') + u"\r\nend"_s;
    grid.setDataSource(makeTable({{u"A"_s}}, {{text},
                                              {u"a\nb"_s},
                                              {QByteArray("\x01"
                                                          "Az")}}));
    grid.show();
    const auto view = [&](int row) {
        grid.setCurrentIndex(grid.model()->index(row, 0));
        QTest::keyClick(&grid, Qt::Key_Return);
        return grid.findChild<CellViewer *>();
    };
    const CellViewer &viewer = *view(0);
    QVERIFY(viewer.isVisible());
    QCOMPARE(viewer.windowTitle(), u"A, row 1"_s);
    const auto *shownValue = viewer.findChild<QPlainTextEdit *>(u"txtValue"_s);
    auto *part = viewer.findChild<QSpinBox *>(u"spnPart"_s);
    QVERIFY(part->isVisible());
    part->setValue(part->maximum());
    QCOMPARE(shownValue->toPlainText(), u"\nend"_s);
    viewer.findChild<QPushButton *>(u"cmdCopy"_s)->click();
    QCOMPARE(QGuiApplication::clipboard()->text(), text);
    QCOMPARE(view(1), &viewer);
    QVERIFY(!part->isVisible());
    QCOMPARE(shownValue->toPlainText(), u"a\nb"_s);
    const QPoint last = grid.visualRect(grid.model()->index(2, 0)).center();
    QTest::mouseClick(grid.viewport(), Qt::LeftButton, {}, last);
    QTest::mouseDClick(grid.viewport(), Qt::LeftButton, {}, last);
    QVERIFY(shownValue->toPlainText().startsWith(u"00000000  01 41 7A "_s));
    QVERIFY(shownValue->toPlainText().endsWith(u".Az"_s));
}

void tst_grids::findsInTheRows()
{
    constexpr int rows = 300'000;
    DataGrid grid;
    grid.setDataSource(numberedCells(rows, 2));
    grid.show();
    QTest::keySequence(&grid, QKeySequence::Find);
    auto *bar = grid.findChild<GridSearch *>();
    auto *text = bar->findChild<QLineEdit *>(u"txtGridFind"_s);
    const auto *note = bar->findChild<QLabel *>(u"lblGridNote"_s);
    QVERIFY(bar->isVisible());
    const auto find = [&](const QString &wanted, Qt::KeyboardModifiers modifiers = {}) {
        text->setText(wanted);
        QTest::keyClick(&grid, Qt::Key_F3, modifiers);
        [&] { QTRY_VERIFY(!bar->isSearching()); }();
        return grid.currentIndex().data().toString() + u' ' + note->text();
    };
    QCOMPARE(find(u"5.1"_s), u"5.1 "_s);
    QCOMPARE(find(u"5.1"_s), u"15.1 "_s);
    QCOMPARE(find(u"5.1"_s, Qt::ShiftModifier), u"5.1 "_s);
    QCOMPARE(find(u"12345.0"_s, Qt::ShiftModifier), u"212345.0 Went on at the other end"_s);
    QCOMPARE(find(u"212345.0"_s), u"212345.0 Went on at the other end"_s);
    QCOMPARE(find(u"1.1\u20292"_s), u"212345.0 Not found"_s); // cells do not run together

    // It takes turns, and ends when the rows go.
    grid.setCurrentIndex(grid.model()->index(0, 0));
    text->setText(u"nowhere"_s);
    QTest::keyClick(text, Qt::Key_Return);
    QVERIFY(bar->isSearching());
    QCOMPARE(note->text(), u"Searching…"_s);
    grid.dataSource()->Close();
    QTRY_VERIFY(!bar->isSearching());
    QTest::keyClick(text, Qt::Key_Escape);
    QVERIFY(!bar->isVisible());
}

void tst_grids::flexGridCountsFixedCellsAndPicksRows()
{
    FlexGrid grid;
    QCOMPARE(QSize(grid.Cols(), grid.Rows()), QSize(1, 1));
    const QString longText = QString(999, u'x') + u"\r\n"_s;
    grid.setRecordset(
        makeTable({{u"SQL Statement"_s}, {u"B"_s}},
                  {{longText, 1}, {1, NullValue{}}, {u"statement 3"_s, QString()}, {}}));
    QCOMPARE(QSize(grid.Cols(), grid.Rows()), QSize(3, 5));
    QCOMPARE(grid.TextMatrix(1, 1), longText);
    QCOMPARE(grid.TextMatrix(2, 2), u"NULL"_s);
    QCOMPARE(raisedError([&] { grid.TextMatrix(5, 1); }), ErrorNumber::SubscriptOutOfRange);
    QCOMPARE(raisedError([&] { grid.setColWidth(3, 100); }), ErrorNumber::SubscriptOutOfRange);

    grid.show();
    QVERIFY(QTest::qWaitForWindowExposed(&grid));
    QSignalSpy picked(&grid, &FlexGrid::rowPicked);
    QCOMPARE(grid.RowSel(), 0);
    QTest::keyClick(&grid, Qt::Key_Return);
    QCOMPARE(picked.count(), 0);

    const QPoint thirdRow = grid.visualRect(grid.model()->index(2, 0)).center();
    QTest::mouseClick(grid.viewport(), Qt::LeftButton, {}, thirdRow);
    QCOMPARE(grid.RowSel(), 3);
    QCOMPARE(grid.SelText(), u"statement 3\t"_s);
    QCOMPARE(picked.count(), 0);
    QTest::mouseDClick(grid.viewport(), Qt::LeftButton, {}, thirdRow);
    QTest::keyClick(&grid, Qt::Key_Return);
    QCOMPARE(picked.count(), 2);
    QCOMPARE(picked.last().first().toInt(), 3);
    QTest::mouseClick(grid.viewport(), Qt::LeftButton, Qt::ControlModifier, thirdRow);
    QTest::mouseDClick(grid.viewport(), Qt::LeftButton, Qt::ControlModifier, thirdRow);
    QCOMPARE(grid.RowSel(), 0);
    QCOMPARE(picked.count(), 2);
}

void tst_grids::treeColumns()
{
    ColumnTree tree;
    tree.addColumn(u"object_name"_s, u"Object Name"_s, 200, Qt::AlignLeft);
    tree.addColumn(u"cost"_s, u"Cost"_s, 100, Qt::AlignRight);
    QCOMPARE(tree.columnIndex(u"cost"_s), 2);
    QCOMPARE(tree.headerItem()->text(1), u"Object Name"_s);
    QCOMPARE(tree.columnWidth(2), 100);
    QCOMPARE(raisedError([&] { tree.columnIndex(u"bytes"_s); }), ErrorNumber::ItemNotFound);

    auto *root = new QTreeWidgetItem(&tree, {u"SELECT STATEMENT"_s});
    auto *child = new QTreeWidgetItem(root, {u"TABLE ACCESS"_s, u"EMP"_s, u"7"_s});
    root->setExpanded(true);
    child->setSelected(true);
    root->setSelected(true);
    QCOMPARE(tree.SelText(), u"SELECT STATEMENT\t\t\r\nTABLE ACCESS\tEMP\t7"_s);
}

QTEST_MAIN(tst_grids)

#include "tst_grids.moc"
