// The text exports of the retrieved sample table, against the database's own command line and
// against plain buffered writing of the same bytes.

#include "dataaccess/Recordset.h"
#include "export/exportFormats.h"
#include "platform/RuntimeError.h"
#include "support/figures.h"
#include "support/inTurn.h"
#include "support/retrieval.h"
#include "support/sampleTable.h"

#include <QCoreApplication>
#include <QFile>
#include <QFileInfo>
#include <QProcess>
#include <QTemporaryDir>

#include <cstdio>
#include <limits>
#include <vector>

using namespace Qt::StringLiterals;

namespace {

/// Where the exports other than comma-delimited ones end with an overflow.
constexpr int mostCountedRecords = std::numeric_limits<qint16>::max();

QByteArray contentsOf(const QString &path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        giveUp(file.errorString());
    return file.readAll();
}

std::vector<QByteArrayView> linesOf(const QByteArray &text)
{
    std::vector<QByteArrayView> lines;
    for (qsizetype from = 0; from < text.size();) {
        const qsizetype end = text.indexOf('\n', from) + 1;
        lines.push_back(QByteArrayView(text).sliced(from, end - from));
        from = end;
    }
    return lines;
}

void writePlainly(const std::vector<QByteArrayView> &lines, const QString &path)
{
    std::FILE *file = std::fopen(QFile::encodeName(path).constData(), "wb");
    for (const QByteArrayView line : lines)
        std::fwrite(line.data(), 1, static_cast<size_t>(line.size()), file);
    if (std::fclose(file) != 0)
        giveUp(u"The export's bytes cannot be written."_s);
}

void exportByCommandLine(const QString &path)
{
    QProcess sqlite;
    sqlite.setStandardOutputFile(path);
    sqlite.start(u"sqlite3"_s, {u"-csv"_s, sampleFile(), u"select * from SAMPLE"_s});
    if (!sqlite.waitForFinished(-1) || sqlite.exitCode() != 0)
        giveUp(u"sqlite3 cannot export the sample table."_s);
}

void printComma(const QTemporaryDir &folder)
{
    const auto rows = retrieveAll(sampleTable(), u"select * from SAMPLE"_s);
    const QString path = folder.filePath(u"export.csv"_s);
    const QString otherPath = folder.filePath(u"other.csv"_s);
    const auto writeComma = [&] { writeCommaDelimited(*rows, path); };
    writeComma();
    printFigure(u"comma export of SAMPLE"_s, megabytesText(QFileInfo(path).size()));
    const TwoSides byCommandLine = measureInTurn(
        fewRounds, [&] { exportByCommandLine(otherPath); }, writeComma);
    printFigure(u"comma export of SAMPLE, time"_s, secondsText(byCommandLine.ours.clock));
    printRatio(u"comma export / sqlite3 -csv"_s, byCommandLine.ratio(), 0.3);

    const QByteArray bytes = contentsOf(path);
    const std::vector<QByteArrayView> lines = linesOf(bytes);
    const TwoSides byPlainWriting = measureInTurn(
        fewRounds, [&] { writePlainly(lines, otherPath); }, writeComma);
    printRatio(u"comma export / plain buffered writing of the same lines"_s, byPlainWriting.ratio(),
               3);
    printRatio(u"the same in processor time"_s, byPlainWriting.processorRatio());

    int error = 0;
    try {
        writeInsertStatements(*rows, path, u"SAMPLE"_s);
    } catch (const RuntimeError &failure) {
        error = failure.number;
    }
    printOutcome(u"INSERT export of SAMPLE: error"_s, QString::number(error), u"6"_s);
    printOutcome(u"INSERT export of SAMPLE: records before that"_s,
                 QString::number(contentsOf(path).count('\n')),
                 QString::number(mostCountedRecords));
}

/// Compares the cost of a byte with that of a comma export of the same rows.
void printPerByte(const QString &what, const QTemporaryDir &folder, Recordset &rows,
                  const std::function<void(const QString &path)> &write)
{
    const QString commaPath = folder.filePath(u"comma.csv"_s);
    const QString path = folder.filePath(u"export.txt"_s);
    const TwoSides seconds = measureInTurn(
        manyRounds, [&] { writeCommaDelimited(rows, commaPath); }, [&] { write(path); });
    const double bytes = static_cast<double>(QFileInfo(path).size());
    const double commaBytes = static_cast<double>(QFileInfo(commaPath).size());
    printRatio(u"%1 export / comma export, per byte"_s.arg(what),
               seconds.ratio() * commaBytes / bytes, 1.2);
}

} // namespace

int main(int argc, char **argv)
{
    const QCoreApplication application(argc, argv);
    const QTemporaryDir folder;
    printComma(folder);

    const auto rows =
        retrieveAll(sampleTable(), u"select * from SAMPLE limit %1"_s.arg(mostCountedRecords));
    printPerByte(u"tab"_s, folder, *rows,
                 [&](const QString &path) { writeDelimited(*rows, path, u"\t"_s); });
    printPerByte(u"other delimiter"_s, folder, *rows,
                 [&](const QString &path) { writeDelimited(*rows, path, u";"_s); });
    printPerByte(u"INSERT"_s, folder, *rows,
                 [&](const QString &path) { writeInsertStatements(*rows, path, u"SAMPLE"_s); });
    return 0;
}
