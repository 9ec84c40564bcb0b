#include "export/exportFormats.h"

#include "dataaccess/Recordset.h"
#include "dataaccess/RowCells.h"
#include "platform/ByteBuffer.h"
#include "platform/errorTraps.h"
#include "platform/files.h"
#include "platform/numberForms.h"
#include "platform/textForms.h"

#include <QScopeGuard>

#include <optional>
#include <vector>

using namespace Qt::StringLiterals;

namespace {

/// Appends the lines of delimited files.
auto delimitedLine(const Recordset &recordset, const QString &separator, const QString &nullMark)
{
    return [lastField = recordset.fieldCount() - 1, separator = separator.toUtf8(),
            nullMark = nullMark.toUtf8()](RowCells &cells, ByteBuffer &line) {
        for (int field = 0; field <= lastField; ++field) {
            if (cells.isNull()) {
                line.append(nullMark);
                cells.skip();
                continue;
            }
            const qsizetype start = line.size();
            cells.takeText(line);
            line.trimBlanksFrom(start);
            if (field != lastField)
                line.append(separator);
        }
    };
}

void appendInsertedValue(RowCells &cells, bool isDate, ByteBuffer &line)
{
    const auto timestamp = isDate ? cells.timestamp() : std::nullopt;
    if (!timestamp) {
        cells.takeText(line);
        return;
    }
    cells.skip();
    appendDayMonthYear(*timestamp, line);
}

/// Appends insert statements.
auto insertStatement(const Recordset &recordset, const QString &tableName)
{
    QStringList names;
    std::vector<bool> isDate;
    for (int field = 0; field < recordset.fieldCount(); ++field) {
        names.append(recordset.fieldName(field));
        isDate.push_back(recordset.fieldType(field) == adDBTimeStamp);
    }
    return [isDate, beginning = insertBeginning(tableName, names).toUtf8()](RowCells &cells,
                                                                            ByteBuffer &line) {
        line.append(beginning);
        for (const bool fieldIsDate : isDate) {
            line.append('\'');
            appendInsertedValue(cells, fieldIsDate, line);
            line.append("' ,");
        }
        line.chop(1);
        line.append(");");
    };
}

/// Writes a line for every record. @returns how many there were
/// @throws RuntimeError 6 for one more than a Count can be
template <typename Count, typename Line>
Count writeLines(Recordset &recordset, const QString &path, const Line &appendLine)
{
    recordset.MoveFirst(); // before a file is replaced by nothing
    // However it ends: a recordset at its end would not be exported again.
    const auto rewind = qScopeGuard([&] { ignoreErrors([&] { recordset.MoveFirst(); }); });
    FileWriter file(path, FileWriter::Mode::Replace);
    RowCells cells;
    ByteBuffer text;
    Count count = 0;
    for (; !recordset.Eof(); recordset.MoveNext()) {
        count = checkedCast<Count>(count + 1);
        text.clear();
        cells.takeRow(recordset);
        appendLine(cells, text);
        text.append("\r\n");
        file.write(text.view());
    }
    file.close();
    return count;
}

} // namespace

QString insertBeginning(const QString &tableName, const QStringList &fieldNames)
{
    return "Insert into "_L1 + tableName + " ("_L1 + fieldNames.join(u',') + ") VALUES ("_L1;
}

void writeCommaDelimited(Recordset &recordset, const QString &path)
{
    writeLines<qint64>(recordset, path, delimitedLine(recordset, u","_s, u","_s));
}

qint16 writeDelimited(Recordset &recordset, const QString &path, const QString &separator)
{
    return writeLines<qint16>(recordset, path, delimitedLine(recordset, separator, u"\t"_s));
}

qint16 writeInsertStatements(Recordset &recordset, const QString &path, const QString &tableName)
{
    return writeLines<qint16>(recordset, path, insertStatement(recordset, tableName));
}
