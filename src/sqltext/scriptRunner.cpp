#include "sqltext/scriptRunner.h"

#include "dataaccess/text/SqlTokens.h"
#include "platform/errorTraps.h"
#include "platform/textForms.h"
#include "sqltext/sqlTexts.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

bool holdsStatement(const QString &piece)
{
    const QString text = trimBlanks(stripComments(piece));
    return std::any_of(text.begin(), text.end(), [](QChar c) { return c != u'\n' && c != u'\r'; });
}

struct Piece
{
    QStringView statement;
    QString block;
    int firstLine;
    int lastLine;
};

qsizetype lengthBeforeStatement(QStringView piece)
{
    const SqlToken first = SqlTokens(piece).next();
    return first.kind == SqlToken::End ? 0 : first.text.data() - piece.data();
}

/// All statements with their blocks. Made one by one as they are sent, each would find the
/// processor's caches taken by the driver and take several times as long.
std::vector<Piece> piecesOf(const QString &script)
{
    std::vector<Piece> pieces;
    qsizetype start = 0;
    int line = 1;
    for (qsizetype end = script.indexOf(u';'); end >= 0; end = script.indexOf(u';', start)) {
        const QString piece = script.sliced(start, end - start);
        const QStringView statement = QStringView(script).sliced(start, end - start);
        const int lastLine = line + static_cast<int>(statement.count(u'\n'));
        if (holdsStatement(piece)) {
            const QStringView before = statement.left(lengthBeforeStatement(statement));
            const int firstLine = line + static_cast<int>(before.count(u'\n'));
            pieces.push_back({statement, scriptBlock(piece), firstLine, lastLine});
        }
        line = lastLine;
        start = end + 1;
    }
    return pieces;
}

} // namespace

ScriptReport
runScript(const QString &script, QString &errors,
          const std::function<void(const QString &command, QStringView statement)> &execute,
          const std::function<bool()> &isCancelled)
{
    const std::vector<Piece> pieces = piecesOf(script);
    ScriptReport report;
    for (const Piece &piece : pieces) {
        ++report.statements;
        try {
            execute(piece.block, piece.statement);
            if (isCancelled())
                throw RuntimeError(ErrorNumber::ProviderFailed, u"The script was canceled."_s);
        } catch (...) {
            const QString description = currentRuntimeError().description;
            errors += u' ' + description + "\r\n"_L1;
            report.failures.push_back({piece.firstLine, piece.lastLine, description});
        }
        if (isCancelled())
            break;
    }
    return report;
}
