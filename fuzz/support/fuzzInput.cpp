#include "support/fuzzInput.h"

using namespace Qt::StringLiterals;

QList<QString> textsOf(const std::uint8_t *data, std::size_t size, qsizetype count)
{
    constexpr auto separator = "\n~\n"_L1;
    QString rest = textOf(data, size);
    QList<QString> texts;
    while (texts.size() < count - 1) {
        const qsizetype end = rest.indexOf(separator);
        texts.append(rest.left(end));
        rest = end < 0 ? QString() : rest.mid(end + separator.size());
    }
    texts.append(rest);
    return texts;
}
