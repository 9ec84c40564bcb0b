#include "history/historyFile.h"

#include "dataaccess/Recordset.h"
#include "history/HistoryLoader.h"
#include "platform/LineReader.h"
#include "platform/TextFileWriter.h"
#include "platform/applicationFolder.h"
#include "platform/systemClock.h"
#include "platform/textForms.h"

#include <QFileInfo>

using namespace Qt::StringLiterals;

QString historyFileName()
{
    return u"OrbekSqlHistory.txt"_s;
}

void appendToHistory(const QString &statement)
{
    const QString record = trimBlanks(statement) + "\r\nSQLTIME\r\n"_L1 +
                           dateTimeToText(localNow()) + "\r\nSQLEND\r\n"_L1;
    TextFileWriter file(applicationFile(historyFileName()), TextFileWriter::Mode::Append);
    file.write(record.toLocal8Bit());
    file.close();
}

void loadHistory(const QString &fileName, const QString & /*path*/, Recordset &recordset)
{
    const QString file = applicationFile(fileName);
    if (!QFileInfo::exists(file))
        TextFileWriter(file, TextFileWriter::Mode::Replace).close();
    LineReader lines(file);

    recordset.setCursorLocation(adUseClient);
    recordset.setCursorType(adOpenStatic);
    recordset.setLockType(adLockOptimistic);
    recordset.appendField(u"SQL Statement"_s, adVarChar, HistoryLoader::fieldSize);
    recordset.appendField(u"SQL_Time"_s, adVarChar, HistoryLoader::fieldSize);
    recordset.Open();

    HistoryLoader loader(recordset);
    while (const auto line = lines.nextLine())
        loader.takeLine(*line);
    recordset.setSort(u"SQL_Time DESC"_s);
}
