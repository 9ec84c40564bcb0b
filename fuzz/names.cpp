// Names in texts that others have written: a network configuration, and statements that are being
// typed.

#include "connection/login.h"
#include "dataaccess/text/SqlTokens.h"
#include "sqltext/completion.h"
#include "support/fuzzing.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

void checkAliases(const QString &text)
{
    for (const QString &alias : tnsAliases(text))
        require(!alias.isEmpty() && text.contains(alias), "an alias stands in the text");
    require(tnsAliases(text + u"\nafter_all =\n (DESCRIPTION = (SID = x))"_s)
                .contains(u"after_all"_s, Qt::CaseInsensitive),
            "what comes before a definition does not hide it");
}

void checkPlace(const QString &text, qsizetype caret)
{
    const auto place = completionPlace(text, caret);
    if (!place)
        return;
    require(place->begin <= caret, "a name begins before the caret");
    const QStringView typed = QStringView(text).sliced(place->begin, caret - place->begin);
    require(std::all_of(typed.begin(), typed.end(), isWordCharacter), "a name is one word");
    require(place->begin == 0 || !isWordCharacter(text[place->begin - 1]), "and a whole one");
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    const QString text = textOf(data, size);
    checkAliases(text);
    for (qsizetype caret = 0; caret <= text.size(); caret += 1 + text.size() / 16)
        checkPlace(text, caret);
    return 0;
}
