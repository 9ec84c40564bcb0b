// The history's reader gives the rows, or the error, that a second writing of its rules gives.

#include "dataaccess/Recordset.h"
#include "history/HistoryLoader.h"
#include "history/historyFile.h"
#include "platform/applicationFolder.h"
#include "platform/textForms.h"
#include "support/fuzzInput.h"
#include "support/raisedError.h"
#include "support/require.h"

#include <algorithm>
#include <limits>

#include <sys/mman.h>
#include <unistd.h>

using namespace Qt::StringLiterals;

namespace {

/// Statement and time, joined by a zero character.
using Rows = QStringList;

QByteArray keyOf(QByteArray line)
{
    while (line.startsWith(' '))
        line = line.sliced(1);
    while (line.endsWith(' '))
        line.chop(1);
    return line.toUpper();
}

/// Takes the records of @p content as a whole, with no regard to memory.
class LiteralHistory
{
public:
    void read(const QByteArray &content)
    {
        QList<QByteArray> lines = content.split('\n');
        if (lines.last().isEmpty())
            lines.removeLast();
        for (QByteArray &line : lines) {
            if (line.endsWith('\r'))
                line.chop(1);
            take(line);
        }
    }
    Rows rows;

private:
    void take(const QByteArray &line)
    {
        const QByteArray key = keyOf(line);
        if (key == "SQLTIME") {
            const QString statement = QString::fromLocal8Bit(m_content.join());
            m_skipped = statement.size() > HistoryLoader::fieldSize;
            if (!m_skipped)
                rows.append(statement + QChar::Null);
            m_content.clear();
        } else if (key == "SQLEND") {
            if (!m_skipped)
                setTime();
            m_content.clear();
            m_last.clear();
        } else {
            if (m_content.size() == std::numeric_limits<qint16>::max())
                throw RuntimeError(ErrorNumber::Overflow);
            m_content.append(line + "\r\n");
            m_last = line;
        }
    }
    void setTime()
    {
        const QString time =
            dateTimeForm(textToClockTime(QString::fromLocal8Bit(m_last))).toString();
        if (rows.isEmpty())
            throw RuntimeError(ErrorNumber::NoCurrentRecord);
        QString &row = rows.last();
        row = row.left(row.lastIndexOf(QChar::Null) + 1) + time;
    }

    QByteArrayList m_content;
    QByteArray m_last;
    bool m_skipped = false;
};

/// A file in memory that stands in the folder of the process's open files.
class MemoryFile
{
public:
    MemoryFile()
        : m_file(memfd_create("history", MFD_CLOEXEC))
    {
        require(m_file >= 0, "there is a file in memory");
        setApplicationFolder(u"/proc/self/fd"_s);
    }
    QString name() const { return QString::number(m_file); }
    void write(QByteArrayView content) const
    {
        require(ftruncate(m_file, 0) == 0 &&
                    pwrite(m_file, content.data(), static_cast<std::size_t>(content.size()), 0) ==
                        content.size(),
                "the file takes its content");
    }

private:
    int m_file;
};

Rows rowsOf(const Recordset &recordset)
{
    Rows rows;
    for (qint64 row = 0; row < recordset.RecordCount(); ++row)
        rows.append(recordset.textAt(row, 0) + QChar::Null + recordset.textAt(row, 1));
    return rows;
}

void requireNewestTextFirst(const Recordset &recordset)
{
    for (qint64 row = 1; row < recordset.RecordCount(); ++row)
        require(recordset.textAt(row - 1, 1) >= recordset.textAt(row, 1), "times descend");
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    static const MemoryFile file;
    const QByteArrayView content = bytesOf(data, size);
    file.write(content);
    Recordset recordset;
    const int error = raisedError([&] { loadHistory(file.name(), {}, recordset); });
    LiteralHistory literal;
    require(error == raisedError([&] { literal.read(content.toByteArray()); }),
            "both readers raise the same");
    Rows rows = rowsOf(recordset);
    if (error == 0) {
        requireNewestTextFirst(recordset);
        rows.sort();
        literal.rows.sort();
    }
    require(rows == literal.rows, "both readers find the same rows");
    return 0;
}
