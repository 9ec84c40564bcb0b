#include "sqltext/scriptRunner.h"

#include "platform/errorTraps.h"
#include "platform/textForms.h"
#include "sqltext/dynamicStatements.h"
#include "sqltext/sqlFilters.h"

#include <QStringList>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

bool holdsStatement(const QString &piece)
{
    const QString text = trimBlanks(stripComments(piece));
    return std::any_of(text.begin(), text.end(), [](QChar c) { return c != u'\n' && c != u'\r'; });
}

/// The blocks of all statements. Made one by one as they are sent, each would find the processor's
/// caches taken by the driver and take several times as long.
QStringList blocksOf(const QString &script)
{
    QStringList blocks;
    qsizetype start = 0;
    for (qsizetype end = script.indexOf(u';'); end >= 0; end = script.indexOf(u';', start)) {
        const QString piece = script.sliced(start, end - start);
        start = end + 1;
        if (holdsStatement(piece))
            blocks.append(scriptBlock(piece));
    }
    return blocks;
}

} // namespace

void runScript(const QString &script, QString &errors,
               const std::function<void(const QString &command)> &execute)
{
    const QStringList blocks = blocksOf(script);
    for (const QString &block : blocks) {
        try {
            execute(block);
        } catch (...) {
            errors += u' ' + currentRuntimeError().description + "\r\n"_L1;
        }
    }
}
