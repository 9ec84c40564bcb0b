#include "dataaccess/connectionString.h"

#include "platform/textForms.h"

#include <algorithm>

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

QString withoutBraces(const QString &value)
{
    if (value.size() < 2 || !value.startsWith(u'{') || !value.endsWith(u'}'))
        return value;
    return value.mid(1, value.size() - 2).replace(QStringLiteral("}}"), QStringLiteral("}"));
}

} // namespace

ConnectionString::ConnectionString(const QString &text)
{
    for (qsizetype at = 0; at < text.size();) {
        const qsizetype equals = text.indexOf(u'=', at);
        const qsizetype semicolon = text.indexOf(u';', at);
        if (equals < 0 || (semicolon >= 0 && semicolon < equals)) {
            // No value: nothing that anybody could ask for.
            if (semicolon < 0)
                return;
            at = semicolon + 1;
            continue;
        }
        const qsizetype end = valueEnd(text, equals + 1);
        const QStringView view(text);
        const QString name = trimBlanks(view.mid(at, equals - at));
        if (!contains(name))
            m_items.append(
                {name, withoutBraces(trimBlanks(view.mid(equals + 1, end - equals - 1)))});
        at = end + 1;
    }
}

const ConnectionString::Item *ConnectionString::find(QStringView name) const
{
    const auto found = std::find_if(m_items.begin(), m_items.end(), [name](const Item &item) {
        return name.compare(item.name, Qt::CaseInsensitive) == 0;
    });
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
