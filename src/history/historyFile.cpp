#include "history/historyFile.h"

#include "dataaccess/Recordset.h"
#include "history/HistoryLoader.h"
#include "platform/FileReader.h"
#include "platform/FileWriter.h"
#include "platform/applicationFolder.h"
#include "platform/fileErrors.h"
#include "platform/systemClock.h"
#include "platform/textForms.h"

#include <QFileInfo>

using namespace Qt::StringLiterals;

namespace {

/// Adds to the file, which its owner alone can read if it is made now: statements hold passwords.
void append(const QString &path, const QByteArray &text)
{
    requireOrdinaryFile(path);
    FileWriter file(path, FileWriter::Mode::Append, QFile::ReadOwner | QFile::WriteOwner);
    file.write(text);
    file.close();
}

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
    recordset.appendField(u"SQL Statement"_s, adVarChar, HistoryLoader::fieldSize);
    recordset.appendField(u"SQL_Time"_s, adVarChar, HistoryLoader::fieldSize);
    recordset.Open();

    HistoryLoader loader(recordset);
    while (const auto line = lines.nextLine())
        loader.takeLine(*line);
    recordset.setSort(u"SQL_Time DESC"_s);
}
