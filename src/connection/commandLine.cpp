#include "connection/commandLine.h"

#include "platform/textForms.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

/// Letter by letter, so that positions stay what they are.
QString inUpperCase(QString text)
{
    std::transform(text.cbegin(), text.cend(), text.begin(), [](QChar c) { return c.toUpper(); });
    return text;
}

void readItem(const QString &commandLine, QLatin1StringView key, QString &value)
{
    const qsizetype found = inUpperCase(commandLine).indexOf(key);
    if (found < 0)
        return;
    const qsizetype begin = found + key.size() + 1;
    const qsizetype end = commandLine.indexOf(u';', found);
    if (end >= begin)
        value = commandLine.sliced(begin, end - begin);
}

} // namespace

QString cleanedCommandLine(const QString &commandLine)
{
    return trimBlanks(QString(commandLine).remove(u'"'));
}

void readLoginNames(const QString &commandLine, QString &userName, QString &tnsName)
{
    readItem(commandLine, "USER ID"_L1, userName);
    readItem(commandLine, "DATA SOURCE"_L1, tnsName);
}
