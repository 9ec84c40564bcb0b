// Syntax definitions and the cutting of text by them: a definition is taken or refused by its line,
// and whatever is taken cuts any text to its end.

#include "sqltext/SqlTokenizer.h"
#include "sqltext/SyntaxDefinition.h"
#include "sqltext/wordClasses.h"

#include "platform/FileReader.h"
#include "platform/RuntimeError.h"
#include "support/fuzzInput.h"
#include "support/require.h"

#include <optional>

using namespace Qt::StringLiterals;

namespace {

std::optional<SyntaxDefinition> definitionOf(const QString &text)
{
    try {
        return parseSyntaxDefinition(text);
    } catch (const RuntimeError &error) {
        require(error.number == ErrorNumber::TypeMismatch &&
                    error.description.contains(u", line "_s),
                "a definition is refused by its line");
    }
    return std::nullopt;
}

/// The definition in the words of its file.
QString written(const SyntaxDefinition &definition)
{
    static const QStringList names{u"name"_s,   u"blank"_s,    u"comment"_s,    u"literal"_s,
                                   u"number"_s, u"operator"_s, u"quoted-name"_s};
    QString text = u"syntax "_s + definition.name;
    for (const Delimiter &delimiter : definition.delimiters) {
        const bool isBlock = delimiter.kind == TextKind::Comment && !delimiter.end.isEmpty();
        text += isBlock                                  ? u"\nblock-comment "_s
                : delimiter.kind == TextKind::Comment    ? u"\nline-comment "_s
                : delimiter.kind == TextKind::QuotedName ? u"\nquoted-name "_s
                                                         : u"\nliteral "_s;
        text += QString::fromUtf8(delimiter.begin) + u' ' + QString::fromUtf8(delimiter.end);
    }
    for (qsizetype kind = 0; kind < names.size(); ++kind) {
        if (const auto &look = definition.looks[static_cast<std::size_t>(kind)])
            text += u"\nlook %1 %2%3%4"_s.arg(names[kind])
                        .arg(look->colour, 6, 16, QChar(u'0'))
                        .arg(look->bold ? u" bold"_s : u""_s, look->italic ? u" italic"_s : u""_s);
    }
    return text;
}

void checkCutting(const SqlTokenizer &tokenizer, const QByteArray &text, std::size_t delimiters)
{
    SqlTokenizer::State state = SqlTokenizer::Between;
    for (qsizetype begin = 0; begin < text.size();) {
        const qsizetype lineFeed = text.indexOf('\n', begin);
        const qsizetype end = lineFeed < 0 ? text.size() : lineFeed + 1;
        // A line of its own, so that reading beyond its end is found.
        const std::vector<char> line(text.begin() + begin, text.begin() + end);
        const char *at = line.data();
        const char *const past = at + line.size();
        while (at < past) {
            const auto token = tokenizer.next(at, past, state);
            require(token.length > 0 && token.length <= past - at, "a stretch fits its line");
            require(token.state >= 0 && static_cast<std::size_t>(token.state) <= delimiters,
                    "a state is a delimiter's number");
            at += token.length;
            state = token.state;
        }
        begin = end;
    }
}

SqlTokenizer tokenizerOf(const SyntaxDefinition &definition)
{
    SqlTokenizer tokenizer;
    tokenizer.setWordClasses(sqlWordClasses().keywordTable);
    tokenizer.setDefinition(definition);
    return tokenizer;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    static const SyntaxDefinition definition = parseSyntaxDefinition(
        QString::fromUtf8(FileReader(QStringLiteral(QUERNA_SYNTAX_DEFINITION)).readAll()));
    static const SqlTokenizer shipped = tokenizerOf(definition);
    static SqlTokenizer odd = tokenizerOf(definition);

    checkCutting(shipped, bytesOf(data, size).toByteArray(), definition.delimiters.size());
    const QList<QString> texts = textsOf(data, size, 2);
    if (const auto taken = definitionOf(texts[0])) {
        odd.setDefinition(*taken);
        checkCutting(odd, texts[1].toUtf8(), taken->delimiters.size());
        const auto again = definitionOf(written(*taken));
        require(again.has_value(), "a definition is written in its words");
        requireEqual(written(*again), written(*taken), "and read back");
    }
    return 0;
}
