#include "sqltext/SyntaxDefinition.h"

#include "platform/RuntimeError.h"
#include "platform/textForms.h"

#include <QHash>
#include <QStringList>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

[[noreturn]] void refuse(qsizetype line, const QString &reason)
{
    throw RuntimeError(ErrorNumber::TypeMismatch, u"%1: syntax definition, line %2: %3"_s.arg(
                                                      errorDescription(ErrorNumber::TypeMismatch),
                                                      QString::number(line), reason));
}

/// One line of the file, cut at blanks and tabs.
class DefinitionLine
{
public:
    DefinitionLine(qsizetype number, QStringView text)
        : m_number(number)
        , m_words(text.toString().simplified().split(u' ', Qt::SkipEmptyParts))
    {
    }

    bool isEmpty() const { return m_words.isEmpty() || m_words.first().startsWith(u'#'); }
    QString keyword() const { return m_words.first(); }
    QStringList values() const { return m_words.mid(1); }

    [[noreturn]] void refuse(const QString &reason) const { ::refuse(m_number, reason); }

    void expectValues(qsizetype fewest, qsizetype most) const
    {
        const qsizetype count = m_words.size() - 1;
        if (count < fewest || count > most)
            refuse(u"\"%1\" has %2 values"_s.arg(keyword(), QString::number(count)));
    }

private:
    qsizetype m_number;
    QStringList m_words;
};

QByteArray mark(const DefinitionLine &line, const QString &text)
{
    QByteArray bytes = text.toUtf8();
    if (bytes.size() > SyntaxDefinition::longestMark)
        line.refuse(u"the mark \"%1\" is too long"_s.arg(text));
    return bytes;
}

Delimiter lineComment(const DefinitionLine &line)
{
    line.expectValues(1, 1);
    return {TextKind::Comment, mark(line, line.values().first()), {}, false};
}

Delimiter enclosed(const DefinitionLine &line, TextKind kind, bool spansLines)
{
    line.expectValues(2, 2);
    return {kind, mark(line, line.values().at(0)), mark(line, line.values().at(1)), spansLines};
}

/// @returns whether @p line is one that describes a delimiter
bool readDelimiter(const DefinitionLine &line, SyntaxDefinition &definition)
{
    const QString keyword = line.keyword();
    if (keyword == u"line-comment")
        definition.delimiters.push_back(lineComment(line));
    else if (keyword == u"block-comment")
        definition.delimiters.push_back(enclosed(line, TextKind::Comment, true));
    else if (keyword == u"literal")
        definition.delimiters.push_back(enclosed(line, TextKind::Literal, true));
    else if (keyword == u"quoted-name")
        definition.delimiters.push_back(enclosed(line, TextKind::QuotedName, false));
    else
        return false;
    if (definition.delimiters.size() > SyntaxDefinition::mostDelimiters)
        line.refuse(u"too many delimiters"_s);
    return true;
}

int colourOf(const DefinitionLine &line, const QString &text)
{
    const auto isHexDigit = [](QChar c) {
        return isDigit(c) || (c.toLower() >= u'a' && c.toLower() <= u'f');
    };
    if (text.size() != 6 || !std::all_of(text.begin(), text.end(), isHexDigit))
        line.refuse(u"\"%1\" is no colour"_s.arg(text));
    return text.toInt(nullptr, 16);
}

void readLook(const DefinitionLine &line, SyntaxDefinition &definition)
{
    static const QHash<QString, TextKind> kinds{
        {u"name"_s, TextKind::Name},         {u"comment"_s, TextKind::Comment},
        {u"literal"_s, TextKind::Literal},   {u"number"_s, TextKind::Number},
        {u"operator"_s, TextKind::Operator}, {u"quoted-name"_s, TextKind::QuotedName},
    };
    line.expectValues(2, 4);
    const QStringList values = line.values();
    const auto kind = kinds.find(values.at(0));
    if (kind == kinds.end())
        line.refuse(u"there is no \"%1\" to give a look to"_s.arg(values.at(0)));
    TextLook look;
    look.colour = colourOf(line, values.at(1));
    for (const QString &style : values.mid(2)) {
        if (style == u"bold")
            look.bold = true;
        else if (style == u"italic")
            look.italic = true;
        else
            line.refuse(u"\"%1\" is no style"_s.arg(style));
    }
    definition.looks[static_cast<std::size_t>(*kind)] = look;
}

void readLine(const DefinitionLine &line, SyntaxDefinition &definition)
{
    if (definition.name.isEmpty()) {
        if (line.keyword() != u"syntax")
            line.refuse(u"the first line has to be \"syntax\" with a name"_s);
        line.expectValues(1, 1);
        definition.name = line.values().first();
    } else if (line.keyword() == u"look") {
        readLook(line, definition);
    } else if (!readDelimiter(line, definition)) {
        line.refuse(u"\"%1\" means nothing here"_s.arg(line.keyword()));
    }
}

} // namespace

SyntaxDefinition parseSyntaxDefinition(const QString &text)
{
    SyntaxDefinition definition;
    qsizetype number = 0;
    for (const QStringView lineText : QStringView(text).tokenize(u'\n')) {
        const DefinitionLine line(++number, lineText);
        if (!line.isEmpty())
            readLine(line, definition);
    }
    if (definition.name.isEmpty())
        refuse(number, u"there is no \"syntax\" line"_s);
    return definition;
}
