#include "dataaccess/text/connectionString.h"

#include "platform/textForms.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

/// The end of a value that begins at @p from: a `;`, or for a value in braces the closing one that
/// is not doubled.
qsizetype valueEnd(const QString &text, qsizetype from)
{
    qsizetype at = from;
    while (at < text.size() && text[at] == u' ')
        ++at;
    if (at < text.size() && text[at] == u'{') {
        for (++at; at < text.size(); ++at) {
            if (text[at] != u'}')
                continue;
            if (at + 1 == text.size() || text[at + 1] != u'}')
                break;
            ++at;
        }
    }
    const qsizetype end = text.indexOf(u';', at);
    return end < 0 ? text.size() : end;
}

/// What inBraces() has put into them.
QString withoutBraces(const QString &value)
{
    if (value.size() < 2 || !value.startsWith(u'{') || !value.endsWith(u'}'))
        return value;
    return value.mid(1, value.size() - 2).replace("}}"_L1, "}"_L1);
}

} // namespace

QString inBraces(QString value)
{
    return u'{' + value.replace(u'}', "}}"_L1) + u'}';
}

ConnectionString::ConnectionString(const QString &text)
    : m_text(text)
{
    const auto endsName = [](QChar c) { return c == u'=' || c == u';'; };
    for (qsizetype at = 0; at < text.size();) {
        const qsizetype nameEnd =
            std::find_if(text.begin() + at, text.end(), endsName) - text.begin();
        if (nameEnd == text.size() || text[nameEnd] == u';') {
            // No value: nothing that anybody could ask for.
            at = nameEnd + 1;
            continue;
        }
        const qsizetype end = valueEnd(text, nameEnd + 1);
        const QStringView view(text);
        m_items.append({trimBlanks(view.sliced(at, nameEnd - at)),
                        withoutBraces(trimBlanks(view.sliced(nameEnd + 1, end - nameEnd - 1))), at,
                        qMin(end + 1, text.size())});
        at = end + 1;
    }
}

const ConnectionString::Item *ConnectionString::find(QStringView name) const
{
    const auto found = std::find_if(m_items.begin(), m_items.end(),
                                    [name](const Item &item) { return item.isNamed(name); });
    return found == m_items.end() ? nullptr : &*found;
}

bool ConnectionString::contains(QStringView name) const
{
    return find(name) != nullptr;
}

QString ConnectionString::value(QStringView name) const
{
    const Item *const item = find(name);
    return item == nullptr ? QString() : item->value;
}

QString ConnectionString::textWithout(QStringView name) const
{
    QString kept;
    qsizetype from = 0;
    for (const Item &item : m_items) {
        if (!item.isNamed(name))
            continue;
        kept += QStringView(m_text).sliced(from, item.begin - from);
        from = item.end;
    }
    return kept += QStringView(m_text).sliced(from);
}
