#include "sqltext/selectionEdits.h"

using namespace Qt::StringLiterals;

QString commentLines(const QString &text)
{
    QString commented = text;
    return u"--"_s + commented.replace("\r\n"_L1, "\r\n--"_L1);
}

QString uncommentText(const QString &text)
{
    QString plain = text;
    return plain.remove("--"_L1);
}
