#include "dataaccess/rows/SortOrder.h"

#include "dataaccess/rows/packedCells.h"
#include "platform/RuntimeError.h"
#include "platform/textForms.h"

#include <tuple>

using namespace Qt::StringLiterals;

namespace {

/// Values of different kinds stand in this order: nothing, truth values, numbers, times, texts,
/// bytes.
int kindRank(const Value &value)
{
    static constexpr int ranks[] = {0, 0, 1, 2, 2, 2, 3, 4, 5};
    static_assert(std::size(ranks) == std::variant_size_v<Value::Variant>);
    return ranks[value.variant().index()];
}

double asDouble(const Value &value)
{
    if (const auto *integer = std::get_if<std::int64_t>(&value.variant()))
        return static_cast<double>(*integer);
    if (const auto *exact = std::get_if<ExactNumber>(&value.variant()))
        return exact->digits.toDouble();
    return std::get<double>(value.variant());
}

template <typename T>
int threeWay(const T &a, const T &b)
{
    return a < b ? -1 : b < a ? 1 : 0;
}

int compareNumbers(const Value &a, const Value &b)
{
    const auto *integerA = std::get_if<std::int64_t>(&a.variant());
    const auto *integerB = std::get_if<std::int64_t>(&b.variant());
    if (integerA != nullptr && integerB != nullptr)
        return threeWay(*integerA, *integerB);
    return threeWay(asDouble(a), asDouble(b));
}

auto asTuple(const Timestamp &t)
{
    return std::tuple(t.year, t.month, t.day, t.hour, t.minute, t.second, t.nanosecond);
}

int compare(const Value &a, const Value &b)
{
    const int rank = kindRank(a);
    if (const int order = threeWay(rank, kindRank(b)); order != 0 || rank == 0)
        return order;
    switch (rank) {
    case 1:
        return threeWay(std::get<bool>(a.variant()), std::get<bool>(b.variant()));
    case 2:
        return compareNumbers(a, b);
    case 3:
        return threeWay(asTuple(std::get<Timestamp>(a.variant())),
                        asTuple(std::get<Timestamp>(b.variant())));
    case 4:
        return std::get<QString>(a.variant()).compare(std::get<QString>(b.variant()));
    default:
        return threeWay(std::get<QByteArray>(a.variant()), std::get<QByteArray>(b.variant()));
    }
}

/// Most keys are texts, which need not be taken out of their cells.
int compareCells(const char *a, const char *b)
{
    const auto textA = packedLatin1(a);
    const auto textB = packedLatin1(b);
    return textA && textB ? textA->compare(*textB)
                          : compare(packedCellValue(a), packedCellValue(b));
}

int fieldNamed(QStringView name, const std::vector<FieldInfo> &fields)
{
    for (size_t i = 0; i < fields.size(); ++i) {
        if (name.compare(fields[i].name, Qt::CaseInsensitive) == 0)
            return static_cast<int>(i);
    }
    throw RuntimeError(ErrorNumber::ItemNotFound);
}

/// The end of the item that begins at @p from: the next comma outside brackets and quotes.
qsizetype itemEnd(const QString &text, qsizetype from)
{
    QChar closing;
    for (qsizetype i = from; i < text.size(); ++i) {
        const QChar c = text[i];
        if (!closing.isNull())
            closing = c == closing ? QChar() : closing;
        else if (c == u'[')
            closing = u']';
        else if (c == u'"')
            closing = u'"';
        else if (c == u',')
            return i;
    }
    return text.size();
}

SortOrder::Key readKey(QString item, const std::vector<FieldInfo> &fields)
{
    bool descending = false;
    if (item.endsWith(" DESC"_L1, Qt::CaseInsensitive)) {
        descending = true;
        item = trimBlanks(item.chopped(5));
    } else if (item.endsWith(" ASC"_L1, Qt::CaseInsensitive)) {
        item = trimBlanks(item.chopped(4));
    }
    const bool bracketed = item.startsWith(u'[') && item.endsWith(u']');
    const bool quoted = item.startsWith(u'"') && item.endsWith(u'"');
    if (item.size() > 2 && (bracketed || quoted))
        item = item.mid(1, item.size() - 2);
    if (item.isEmpty())
        throw RuntimeError(ErrorNumber::InvalidArgument);
    return {fieldNamed(item, fields), descending};
}

} // namespace

SortOrder::SortOrder(const QString &text, const std::vector<FieldInfo> &fields)
{
    if (trimBlanks(text).isEmpty())
        return;
    for (qsizetype from = 0; from <= text.size();) {
        const qsizetype end = itemEnd(text, from);
        m_keys.push_back(readKey(trimBlanks(QStringView(text).mid(from, end - from)), fields));
        from = end + 1;
    }
}

bool SortOrder::before(const char *const *a, const char *const *b) const
{
    for (size_t i = 0; i < m_keys.size(); ++i) {
        if (const int order = compareCells(a[i], b[i]); order != 0)
            return m_keys[i].descending ? order > 0 : order < 0;
    }
    return false;
}
