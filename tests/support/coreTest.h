#pragma once

/// What every test of the core includes, and what it says in few words.

#include "dataaccess/Connection.h"
#include "dataaccess/Recordset.h"
#include "platform/RuntimeError.h"
#include "platform/process.h"
#include "platform/settings.h"
#include "platform/systemClock.h"
#include "support/SandboxFixture.h"
#include "support/testFiles.h"

#include <QtTest>

#include <algorithm>
#include <functional>
#include <limits>
#include <memory>
#include <utility>

using namespace Qt::StringLiterals;

/// The RuntimeError that @p work raises; one of number 0 when it raises none. Any other exception
/// goes through and fails the test.
template <typename Work>
RuntimeError raised(Work &&work)
{
    try {
        std::forward<Work>(work)();
    } catch (const RuntimeError &error) {
        return error;
    }
    return RuntimeError(0, QStringLiteral("nothing was raised"));
}

/// Its number.
template <typename Work>
int raisedError(Work &&work)
{
    return raised(std::forward<Work>(work)).number;
}

/// The rows of a data-driven test: made with the names of its columns, called for every row.
template <typename... Columns>
class DataRows
{
public:
    template <typename... Names>
    explicit DataRows(Names... names)
    {
        (QTest::addColumn<Columns>(names), ...);
    }

    void operator()(const char *name, const Columns &...values) const
    {
        (QTest::newRow(name) << ... << values);
    }
};

/// Functions that make one text of another, tested by tables of texts.
using TextFunction = std::function<QString(const QString &)>;

/// Declares the columns of such a test.
void addTextColumns();

/// Adds the rows of @p table, which `|` separates: `text→expected`. A row that is a text alone
/// shares what the next one expects. An error is expected as "error 13". @p name is of the
/// function.
void addTextRows(const char *name, const TextFunction &function, const QString &table);

/// Compares what the row's function makes with what is expected.
void compareTextRow();

struct TableColumn
{
    QString name;
    DataTypeEnum type = adVariant;
    int definedSize = 0;
};

/// An open table of @p columns with @p rows, in memory. The last row is current, being edited.
std::shared_ptr<Recordset> makeTable(const QList<TableColumn> &columns,
                                     const QList<QList<Value>> &rows);

QStringList fieldNames(const Recordset &rows);

/// A value's text form; null as "(null)".
QString shownText(const Value &value);

/// The rows from the current one on, as such texts joined by @p separator.
QStringList remainingRows(Recordset &rows, QChar separator = u',');
