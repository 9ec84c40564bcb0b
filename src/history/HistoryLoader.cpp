#include "history/HistoryLoader.h"

#include "platform/textForms.h"

using namespace Qt::StringLiterals;

namespace {

/// No encoding takes more bytes for a UTF-16 unit.
constexpr qsizetype mostBytesPerUnit = 4;

bool isMarker(QByteArrayView key, QByteArrayView marker)
{
    return key.size() == marker.size() && key.compare(marker, Qt::CaseInsensitive) == 0;
}

} // namespace

HistoryLoader::HistoryLoader(Recordset &recordset)
    : m_recordset(recordset)
{
}

void HistoryLoader::takeLine(QByteArrayView line)
{
    const QByteArrayView key = withoutBlanks(line);
    if (isMarker(key, "SQLTIME"))
        addRecord();
    else if (isMarker(key, "SQLEND"))
        setTime();
    else
        addContent(line);
}

void HistoryLoader::addContent(QByteArrayView line)
{
    ++m_lineCount;
    m_lastLine.clear();
    m_lastLine.append(line);
    // What no field can hold need not be kept, however large the file is.
    m_contentTooLong =
        m_contentTooLong || m_content.size() + line.size() > fieldSize * mostBytesPerUnit;
    if (m_contentTooLong)
        return;
    m_content.append(line);
    m_content.append("\r\n");
}

void HistoryLoader::addRecord()
{
    const QString statement = QString::fromLocal8Bit(m_content.view());
    m_recordSkipped = m_contentTooLong || statement.size() > fieldSize;
    if (!m_recordSkipped) {
        m_recordset.AddNew();
        m_recordset.setValue(0, statement);
    }
    clear();
}

void HistoryLoader::setTime()
{
    if (!m_recordSkipped) {
        const ClockTime time = textToClockTime(QString::fromLocal8Bit(m_lastLine.view()));
        m_recordset.setValue(1, dateTimeForm(time).toString());
    }
    m_lastLine.clear();
    clear();
}

void HistoryLoader::clear()
{
    m_content.clear();
    m_contentTooLong = false;
    m_lineCount = 0;
}
