#include "history/historyFile.h"

#include "dataaccess/Recordset.h"
#include "platform/ByteBuffer.h"
#include "platform/files.h"
#include "platform/numberForms.h"
#include "platform/process.h"
#include "platform/systemClock.h"
#include "platform/textForms.h"

#include <QFileInfo>

using namespace Qt::StringLiterals;

namespace {

/// Adds to the file, which its owner alone can read if it is made now: statements hold passwords.
void append(const QString &path, const QByteArray &text)
{
    requireOrdinaryFile(path);
    FileWriter file(path, FileWriter::Mode::Append, ownerFile);
    file.write(text);
    file.close();
}

/// Longest text of either field, in UTF-16 units.
constexpr int fieldSize = 1000;
/// No encoding takes more bytes for a UTF-16 unit.
constexpr qsizetype mostBytesPerUnit = 4;

bool isMarker(QByteArrayView key, QByteArrayView marker)
{
    return key.size() == marker.size() && key.compare(marker, Qt::CaseInsensitive) == 0;
}

/// Turns the lines of a history file into rows of an open recordset.
class HistoryLoader
{
public:
    explicit HistoryLoader(Recordset &recordset)
        : m_recordset(recordset)
    {
    }

    /// Takes the next line, without its line end.
    /// @throws RuntimeError see loadHistory()
    void takeLine(QByteArrayView line)
    {
        const QByteArrayView key = withoutBlanks(line);
        if (isMarker(key, "SQLTIME"))
            addRecord();
        else if (isMarker(key, "SQLEND"))
            setTime();
        else
            addContent(line);
    }

private:
    void addContent(QByteArrayView line)
    {
        m_lineCount = checkedCast<qint16>(m_lineCount + 1);
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

    void addRecord()
    {
        const QString statement = QString::fromLocal8Bit(m_content.view());
        m_recordSkipped = m_contentTooLong || statement.size() > fieldSize;
        if (!m_recordSkipped) {
            m_recordset.AddNew();
            m_recordset.setValue(0, statement);
        }
        clear();
    }

    void setTime()
    {
        if (!m_recordSkipped) {
            const Timestamp time = textToTimestamp(QString::fromLocal8Bit(m_lastLine.view()));
            m_recordset.setValue(1, timestampToText(time));
        }
        m_lastLine.clear();
        clear();
    }

    void clear()
    {
        m_content.clear();
        m_contentTooLong = false;
        m_lineCount = 0;
    }

    Recordset &m_recordset;
    ByteBuffer m_content; ///< lines since the last marker, each with its line end
    bool m_contentTooLong = false;
    ByteBuffer m_lastLine;
    qint16 m_lineCount = 0;
    bool m_recordSkipped = false;
};

} // namespace

QString historyFileName()
{
    return u"OrbekSqlHistory.txt"_s;
}

void appendToHistory(const QString &statement)
{
    const QString record = trimBlanks(statement) + "\r\nSQLTIME\r\n"_L1 +
                           dateTimeToText(localNow()) + "\r\nSQLEND\r\n"_L1;
    append(applicationFile(historyFileName()), record.toLocal8Bit());
}

void loadHistory(const QString &fileName, const QString & /*path*/, Recordset &recordset)
{
    const QString file = applicationFile(fileName);
    if (!QFileInfo::exists(file))
        append(file, {});
    FileReader lines(file);

    recordset.setCursorLocation(adUseClient);
    recordset.appendField(u"SQL Statement"_s, adVarChar, fieldSize);
    recordset.appendField(u"SQL_Time"_s, adVarChar, fieldSize);
    recordset.Open();

    HistoryLoader loader(recordset);
    while (const auto line = lines.nextLine())
        loader.takeLine(*line);
    recordset.sort(1, true);
}

std::shared_ptr<Recordset> historyWith(const std::shared_ptr<Recordset> &history,
                                       const QString &text)
{
    if (text.isEmpty() || history->RecordCount() == 0)
        return history;
    auto found = std::make_shared<Recordset>();
    for (int field = 0; field < history->fieldCount(); ++field)
        found->appendField(history->fieldName(field), adVariant);
    found->Open();
    for (history->MoveFirst(); !history->Eof(); history->MoveNext()) {
        if (history->value(0).toText().contains(text, Qt::CaseInsensitive))
            found->addNewFrom(*history);
    }
    history->MoveFirst();
    if (found->RecordCount() > 0)
        found->MoveFirst();
    return found;
}
