#include "support/memory.h"

#include "dataaccess/Recordset.h"

#include <QFile>

qint64 peakResidentBytes()
{
    // Not getrusage(): its figure starts with that of the process that started this one.
    QFile status(QStringLiteral("/proc/self/status"));
    if (!status.open(QIODevice::ReadOnly))
        return 0;
    for (const QByteArray &line : status.readAll().split('\n')) {
        if (line.startsWith("VmHWM:"))
            return line.mid(6).chopped(3).trimmed().toLongLong() * 1024;
    }
    return 0;
}

qint64 textBytes(const Recordset &rows)
{
    qint64 bytes = 0;
    QString text;
    for (qint64 row = 0; row < rows.RecordCount(); ++row) {
        text.clear();
        rows.appendRowText(row, 0, rows.fieldCount() - 1, QChar(u'\t'), text);
        bytes += text.toUtf8().size() - (rows.fieldCount() - 1);
    }
    return bytes;
}
