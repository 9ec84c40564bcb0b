// The comment filter gives what its second writing gives, whatever the text.

#include "sqltext/sqlTexts.h"
#include "support/fuzzing.h"
#include "support/literallyStripped.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    const QString text = textOf(data, size);
    requireEqual(stripComments(text), literallyStripped(text),
                 "both writings of the comment filter agree");
    return 0;
}
