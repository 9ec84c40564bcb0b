#include "export/exportFormats.h"

#include "dataaccess/Recordset.h"
#include "dataaccess/RowCells.h"
#include "platform/ByteBuffer.h"
#include "platform/FileWriter.h"
#include "platform/checkedArithmetic.h"
#include "platform/errorTraps.h"
#include "platform/textForms.h"

#include <QScopeGuard>

#include <optional>
#include <vector>

using namespace Qt::StringLiterals;

namespace {

/// Writes the lines of delimited files.
class DelimitedLine
{
public:
    DelimitedLine(const Recordset &recordset, const QString &separator, const QString &nullMark)
        : m_lastField(recordset.fieldCount() - 1)
        , m_separator(separator.toUtf8())
        , m_nullMark(nullMark.toUtf8())
    {
    }

    void append(RowCells &cells, ByteBuffer &line) const
    {
        for (int field = 0; field <= m_lastField; ++field) {
            if (cells.isNull()) {
                line.append(m_nullMark);
                cells.skip();
                continue;
            }
            const qsizetype start = line.size();
            cells.takeText(line);
            line.trimBlanksFrom(start);
            if (field != m_lastField)
                line.append(m_separator);
        }
    }

private:
    int m_lastField;
    QByteArray m_separator;
    QByteArray m_nullMark;
};

/// Writes insert statements.
class InsertStatement
{
public:
    InsertStatement(const Recordset &recordset, const QString &tableName)
    {
        QStringList names;
        for (int field = 0; field < recordset.fieldCount(); ++field) {
            names.append(recordset.fieldName(field));
            m_isDate.push_back(recordset.fieldType(field) == adDBTimeStamp);
        }
        m_beginning = insertBeginning(tableName, names).toUtf8();
    }

    void append(RowCells &cells, ByteBuffer &line) const
    {
        line.append(m_beginning);
        for (const bool isDate : m_isDate) {
            line.append('\'');
            appendValue(cells, isDate, line);
            line.append("' ,");
        }
        line.chop(1);
        line.append(");");
    }

private:
    static void appendValue(RowCells &cells, bool isDate, ByteBuffer &line)
    {
        const auto timestamp = isDate ? cells.timestamp() : std::nullopt;
        if (!timestamp) {
            cells.takeText(line);
            return;
        }
        cells.skip();
        line.append(dayMonthYearForm(timestamp->clockTime()).view());
    }

    QByteArray m_beginning;
    std::vector<bool> m_isDate;
};

struct NoCount
{
    NoCount &operator++() { return *this; }
};

/// Writes a line for every record. @returns how often @p Count was counted up
template <typename Count, typename Line>
Count writeLines(Recordset &recordset, const QString &path, const Line &line)
{
    recordset.MoveFirst(); // before a file is replaced by nothing
    // However it ends: a recordset at its end would not be exported again.
    const auto rewind = qScopeGuard([&] { ignoreErrors([&] { recordset.MoveFirst(); }); });
    FileWriter file(path, FileWriter::Mode::Replace);
    RowCells cells;
    ByteBuffer text;
    Count count;
    for (; !recordset.Eof(); recordset.MoveNext()) {
        ++count;
        text.clear();
        cells.takeRow(recordset);
        line.append(cells, text);
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
    writeLines<NoCount>(recordset, path, DelimitedLine(recordset, u","_s, u","_s));
}

qint16 writeDelimited(Recordset &recordset, const QString &path, const QString &separator)
{
    return writeLines<Int16>(recordset, path, DelimitedLine(recordset, separator, u"\t"_s)).value();
}

qint16 writeInsertStatements(Recordset &recordset, const QString &path, const QString &tableName)
{
    return writeLines<Int16>(recordset, path, InsertStatement(recordset, tableName)).value();
}
