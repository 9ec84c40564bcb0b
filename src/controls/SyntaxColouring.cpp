#include "controls/SyntaxColouring.h"

#include <Qsci/qsciscintillabase.h>

#include <algorithm>
#include <cmath>

namespace {

using Sci = QsciScintillaBase;

constexpr int stylesPerFont = 16;
constexpr qint16 boldClassStyle = 2;
// Lines are taken from the widget in pieces of about this many bytes.
constexpr long pieceSize = 1 << 18;

/// First style number of a font slot. The third sixteen hold the widget's own styles.
int firstStyle(int slot)
{
    return (slot < 2 ? slot : slot + 1) * stylesPerFont;
}

} // namespace

SyntaxColouring::SyntaxColouring(QsciScintillaBase &editor, const EditorFormats &formats)
    : m_editor(editor)
    , m_formats(formats)
{
    m_editor.SendScintilla(Sci::SCI_SETLEXER, static_cast<long>(Sci::SCLEX_CONTAINER));
}

void SyntaxColouring::setDefinition(const SyntaxDefinition &definition)
{
    m_definition = definition;
    m_tokenizer.setDefinition(definition);
    colourEverythingAgain();
}

void SyntaxColouring::setWordClasses(const WordClasses &classes)
{
    m_classes = classes;
    m_tokenizer.setWordClasses(classes.keywordTable);
    colourEverythingAgain();
}

void SyntaxColouring::setLook(const EditorTheme &theme, const QString &family, double points)
{
    int slot = 0;
    for (const FontFormat &font : m_formats.fonts())
        setStyleLooks(slot++, font, theme, family, points);
}

void SyntaxColouring::setStyleLooks(int slot, const FontFormat &font, const EditorTheme &theme,
                                    const QString &family, double points)
{
    const QByteArray familyName = family.toUtf8();
    const auto size = std::lround((font.points > 0 ? font.points : points) * 100);
    for (int kind = 0; kind < textKindCount; ++kind) {
        const TextLook look = lookOf(static_cast<TextKind>(kind));
        const int style = firstStyle(slot) + kind;
        const auto set = [this, style](unsigned int message, long value) {
            m_editor.SendScintilla(message, style, value);
        };
        m_editor.SendScintilla(Sci::SCI_STYLESETFORE, static_cast<unsigned long>(style),
                               theme.readable(QColor::fromRgb(static_cast<QRgb>(look.colour))));
        m_editor.SendScintilla(Sci::SCI_STYLESETBACK, static_cast<unsigned long>(style),
                               theme.background());
        m_editor.SendScintilla(Sci::SCI_STYLESETFONT, static_cast<uintptr_t>(style),
                               familyName.constData());
        set(Sci::SCI_STYLESETSIZEFRACTIONAL, size);
        set(Sci::SCI_STYLESETBOLD, look.bold || font.bold);
        set(Sci::SCI_STYLESETITALIC, look.italic || font.italic);
    }
}

TextLook SyntaxColouring::lookOf(TextKind kind) const
{
    if (kind >= TextKind::Class1) {
        const auto group =
            static_cast<std::size_t>(kind) - static_cast<std::size_t>(TextKind::Class1) + 1;
        return {m_classes.classColours[group], m_classes.classStyles[group] == boldClassStyle,
                false};
    }
    return m_definition.looks[static_cast<std::size_t>(kind)].value_or(
        TextLook{m_classes.classColours[0], false, false});
}

void SyntaxColouring::colourTo(long position)
{
    const long coloured = m_editor.SendScintilla(Sci::SCI_GETENDSTYLED);
    const long lastLine = m_editor.SendScintilla(Sci::SCI_LINEFROMPOSITION, position);
    const long wanted = m_editor.SendScintilla(Sci::SCI_POSITIONFROMLINE, lastLine + 1);
    long from = coloured;
    while (from < wanted)
        from = colourLines(m_editor.SendScintilla(Sci::SCI_LINEFROMPOSITION, from), wanted);
}

/// Colours from the start of @p line on, up to @p wanted or a little less.
/// @returns the end of what is coloured now
long SyntaxColouring::colourLines(long line, long wanted)
{
    const long begin = m_editor.SendScintilla(Sci::SCI_POSITIONFROMLINE, line);
    SqlTokenizer::State state = SqlTokenizer::Between;
    if (line > 0)
        state = static_cast<int>(m_editor.SendScintilla(Sci::SCI_GETLINESTATE, line - 1));
    const long pieceEnd = m_editor.SendScintilla(
        Sci::SCI_POSITIONFROMLINE,
        m_editor.SendScintilla(Sci::SCI_LINEFROMPOSITION, std::min(begin + pieceSize, wanted - 1)) +
            1);
    QByteArray text(pieceEnd - begin + 1, Qt::Uninitialized);
    m_editor.SendScintilla(Sci::SCI_GETTEXTRANGE, begin, pieceEnd, text.data());

    m_styles.clear();
    const char *const textEnd = text.constData() + (pieceEnd - begin);
    for (long at = begin; at < pieceEnd; ++line) {
        at = appendStyles(text.constData() + (at - begin), textEnd, at, state);
        const long before = m_editor.SendScintilla(Sci::SCI_GETLINESTATE, line);
        if (before != state)
            m_editor.SendScintilla(Sci::SCI_SETLINESTATE, line, static_cast<long>(state));
        if (before == state && at > m_changedEnd && at < m_colouredEnd) {
            // From here on everything is as it was.
            write(begin);
            m_editor.SendScintilla(Sci::SCI_STARTSTYLING, m_colouredEnd);
            m_changedEnd = 0;
            return m_colouredEnd;
        }
    }
    write(begin);
    m_colouredEnd = std::max(m_colouredEnd, pieceEnd);
    m_changedEnd = pieceEnd == m_colouredEnd ? 0 : std::max(m_changedEnd, pieceEnd);
    return pieceEnd;
}

/// Appends the styles of the line at @p at, which stands at @p position.
/// @returns the position behind it
long SyntaxColouring::appendStyles(const char *at, const char *end, long position,
                                   SqlTokenizer::State &state)
{
    while (at != end) {
        const SqlTokenizer::Token token = m_tokenizer.next(at, end, state);
        appendStyle(token.kind, position, token.length);
        state = token.state;
        position += token.length;
        at += token.length;
        if (at[-1] == '\n')
            break;
    }
    return position;
}

void SyntaxColouring::appendStyle(TextKind kind, long position, long length)
{
    const long end = position + length;
    while (position < end) {
        const long next = std::min(m_formats.fontEnd(position), end);
        const int style = firstStyle(m_formats.fontSlotAt(position)) + static_cast<int>(kind);
        m_styles.append(next - position, static_cast<char>(style));
        position = next;
    }
}

void SyntaxColouring::write(long begin)
{
    m_editor.SendScintilla(Sci::SCI_STARTSTYLING, begin);
    m_editor.SendScintilla(Sci::SCI_SETSTYLINGEX, static_cast<uintptr_t>(m_styles.size()),
                           m_styles.constData());
}

void SyntaxColouring::textInserted(long begin, long length)
{
    if (begin > m_colouredEnd)
        return;
    m_colouredEnd += length;
    if (m_changedEnd > begin)
        m_changedEnd += length;
    m_changedEnd = std::max(m_changedEnd, begin + length);
}

void SyntaxColouring::textDeleted(long begin, long length)
{
    if (begin >= m_colouredEnd)
        return;
    m_colouredEnd = std::max(begin, m_colouredEnd - length);
    if (m_changedEnd > begin)
        m_changedEnd = std::max(begin, m_changedEnd - length);
    m_changedEnd = std::max(m_changedEnd, begin);
}

void SyntaxColouring::colourAgain(long begin, long end)
{
    m_changedEnd = std::max(m_changedEnd, end);
    const long coloured = m_editor.SendScintilla(Sci::SCI_GETENDSTYLED);
    m_editor.SendScintilla(Sci::SCI_STARTSTYLING, std::min(coloured, begin));
    m_editor.viewport()->update();
}

void SyntaxColouring::colourEverythingAgain()
{
    m_colouredEnd = 0;
    m_changedEnd = 0;
    m_editor.SendScintilla(Sci::SCI_STARTSTYLING, 0L);
    m_editor.viewport()->update();
}
