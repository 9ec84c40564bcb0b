#include "sqltext/scriptRunner.h"

#include "platform/errorTraps.h"
#include "platform/textForms.h"
#include "sqltext/dynamicStatements.h"
#include "sqltext/sqlFilters.h"

using namespace Qt::StringLiterals;

namespace {

bool holdsStatement(const QString &piece)
{
    QString significant = trimBlanks(stripComments(piece));
    significant.remove(u'\n').remove(u'\r');
    return !significant.isEmpty();
}

} // namespace

void runScript(const QString &script, QString &errors,
               const std::function<void(const QString &command)> &execute)
{
    if (trimBlanks(script).isEmpty())
        return;
    qsizetype start = 0;
    for (qsizetype end = script.indexOf(u';'); end >= 0; end = script.indexOf(u';', start)) {
        const QString piece = script.sliced(start, end - start);
        start = end + 1;
        try {
            if (holdsStatement(piece))
                execute(scriptBlock(piece));
        } catch (...) {
            errors += u' ' + currentRuntimeError().description + "\r\n"_L1;
        }
    }
}
