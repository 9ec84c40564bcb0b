#include "export/exportFormats.h"

#include "dataaccess/Recordset.h"
#include "platform/numberForms.h"

#include <QLocale>
#include <QSet>
#include <QStringList>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

constexpr auto lineEnd = "\r\n"_L1;
const QString null = u"NULL"_s;

QString quoted(QString text, QChar quote = u'\'')
{
    return quote + text.replace(quote, QString(2, quote)) + quote;
}

bool isPlainName(const QString &name)
{
    const auto isNameCharacter = [](QChar c) {
        return c.isLetterOrNumber() || u"_$#"_s.contains(c);
    };
    return !name.isEmpty() && name.front().isLetter() &&
           std::all_of(name.begin(), name.end(), isNameCharacter);
}

bool isNumberLiteral(const QString &text)
{
    return std::all_of(text.begin(), text.end(),
                       [](QChar c) { return u"0123456789+-.Ee"_s.contains(c); });
}

QString twoDigits(int number)
{
    return u"%1"_s.arg(number, 2, 10, QChar(u'0'));
}

QString literal(const Timestamp &time)
{
    const QString clock =
        twoDigits(time.hour) + u':' + twoDigits(time.minute) + u':' + twoDigits(time.second);
    if (time.month == 0)
        return quoted(clock);
    const QString date = (time.year < 0 ? u"-"_s : QString()) +
                         u"%1-"_s.arg(qAbs(time.year), 4, 10, QChar(u'0')) + twoDigits(time.month) +
                         u'-' + twoDigits(time.day);
    if (time.hour == 0 && time.minute == 0 && time.second == 0 && time.nanosecond == 0)
        return "DATE "_L1 + quoted(date);
    const QString fraction =
        time.nanosecond == 0 ? QString() : u".%1"_s.arg(time.nanosecond, 9, 10, QChar(u'0'));
    return "TIMESTAMP "_L1 + quoted(date + u' ' + clock + fraction);
}

QString literal(const Value &value)
{
    const Value::Variant &variant = value.variant();
    if (const auto *truth = std::get_if<bool>(&variant))
        return *truth ? u"1"_s : u"0"_s;
    if (const auto *time = std::get_if<Timestamp>(&variant))
        return literal(*time);
    const auto *real = std::get_if<double>(&variant);
    const QString text =
        real ? QString::number(*real, 'g', QLocale::FloatingPointShortest) : value.toText();
    if (text.isEmpty())
        return null;
    if (std::holds_alternative<QByteArray>(variant))
        return u"HEXTORAW('%1')"_s.arg(text);
    return value.isNumber() && isNumberLiteral(text) ? text : quoted(text);
}

QStringList literals(const Recordset &recordset, int row, const std::vector<int> &fields)
{
    QStringList values;
    for (const int field : fields)
        values.append(literal(recordset.valueAt(row, field)));
    return values;
}

} // namespace

QString insertStatements(const Recordset &recordset, const std::vector<int> &rows,
                         const std::vector<int> &fields, const QString &tableName)
{
    QStringList names;
    for (const int field : fields) {
        const QString name = recordset.fieldName(field);
        names.append(isPlainName(name) ? name : quoted(name, u'"'));
    }
    const QString beginning = insertBeginning(tableName, names);
    QString text;
    for (const int row : rows)
        text += beginning + literals(recordset, row, fields).join(u',') + ");"_L1 + lineEnd;
    return text;
}

QString valueList(const Recordset &recordset, const std::vector<int> &rows,
                  const std::vector<int> &fields)
{
    constexpr qsizetype longestLine = 100;
    QSet<QString> known;
    QString text = u"("_s;
    qsizetype lineStart = 0;
    for (const int row : rows) {
        QString item = literals(recordset, row, fields).join(u',');
        if (fields.size() > 1)
            item = u'(' + item + u')';
        if (item == null || known.contains(item))
            continue;
        if (!known.isEmpty())
            text += u',';
        known.insert(item);
        if (text.size() - lineStart + item.size() > longestLine && text.size() > lineStart + 1) {
            text += lineEnd;
            lineStart = text.size();
        }
        text += item;
    }
    return known.isEmpty() ? u"(%1)"_s.arg(null) : text + u')';
}
