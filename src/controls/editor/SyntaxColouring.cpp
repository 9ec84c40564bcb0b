#include "controls/editor/SyntaxColouring.h"

#include <Qsci/qsciscintillabase.h>

#include <algorithm>
#include <cmath>
#include <cstring>

namespace {

using Sci = QsciScintillaBase;

// A style number is the first one of a font slot, plus the kind of text, plus the alternation bit
// or not.
constexpr int stylesPerFont = 32;
constexpr int kindMask = StyleBytes::alternation - 1;
static_assert(textKindCount <= StyleBytes::alternation);

constexpr qint16 boldClassStyle = 2;
// Lines are taken from the widget in pieces of about this many bytes.
constexpr long pieceSize = 1 << 18;

// From this length on, an edit has a line coloured again only around it.
constexpr long longLine = 4096;
// From this length on, the widget's own work on a line is felt at every key.
constexpr long hugeLine = 65536;
// How far before an edit a colour can depend on it (words that are listed with a blank).
constexpr long reachOfEdit = 256;

/// First style number of a font slot. The second thirty-two hold the widget's own styles.
int firstStyle(int slot)
{
    return (slot == 0 ? 0 : slot + 1) * stylesPerFont;
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

void SyntaxColouring::setLook(const ColourTheme &theme, const QString &family, double points)
{
    int slot = 0;
    for (const FontFormat &font : m_formats.fonts())
        setStyleLooks(slot++, font, theme, family, points);
}

void SyntaxColouring::setStyleLooks(int slot, const FontFormat &font, const ColourTheme &theme,
                                    const QString &family, double points)
{
    const QByteArray familyName = family.toUtf8();
    const auto size = std::lround((font.points > 0 ? font.points : points) * 100);
    for (int offset = 0; offset < stylesPerFont; ++offset) {
        const int kind = offset & kindMask;
        if (kind >= textKindCount)
            continue;
        const TextLook look = lookOf(static_cast<TextKind>(kind));
        const int style = firstStyle(slot) + offset;
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
    const long lastLine = m_editor.SendScintilla(Sci::SCI_LINEFROMPOSITION, position);
    const long wanted = m_editor.SendScintilla(Sci::SCI_POSITIONFROMLINE, lastLine + 1);
    long from = m_editor.SendScintilla(Sci::SCI_GETENDSTYLED);
    while (from < wanted)
        from = colourLines(from, wanted);
}

/// Colours from @p from on, up to @p wanted or a little less.
/// @returns the end of what is coloured now
long SyntaxColouring::colourLines(long from, long wanted)
{
    long line = m_editor.SendScintilla(Sci::SCI_LINEFROMPOSITION, from);
    const Place begin = lastSurePlace(from, line);
    const long lastLine = m_editor.SendScintilla(Sci::SCI_LINEFROMPOSITION,
                                                 std::min(begin.position + pieceSize, wanted - 1));
    const long end = m_editor.SendScintilla(Sci::SCI_POSITIONFROMLINE, lastLine + 1);
    const QByteArray text = textBytes(m_editor, {begin.position, end});

    m_styles.start(text.size());
    bool restIsRight = false;
    Place place = begin;
    for (; place.position < end && !restIsRight; ++line) {
        const long lineStart = place.position;
        restIsRight = colourLine(text, begin.position, place);
        // The widget's state of the line that a change ended in can be another line's; that of the
        // line after it is its own.
        if (!restIsRight && keepState(line, place.state))
            restIsRight = lineStart > m_changedEnd && place.position < m_colouredEnd;
    }
    m_editor.SendScintilla(Sci::SCI_STARTSTYLING, begin.position);
    m_editor.SendScintilla(Sci::SCI_SETSTYLINGEX, static_cast<uintptr_t>(m_styles.size()),
                           m_styles.data());
    if (restIsRight) {
        m_editor.SendScintilla(Sci::SCI_STARTSTYLING, m_colouredEnd);
        m_changedEnd = 0;
        return m_colouredEnd;
    }
    m_colouredEnd = std::max(m_colouredEnd, end);
    if (end == m_colouredEnd)
        m_changedEnd = 0;
    else
        m_changedEnd = std::max(m_changedEnd, end);
    return end;
}

/// The last place at or before @p from where the colouring can be taken up: a blank between two
/// stretches well before it in a long line, the start of @p line otherwise.
SyntaxColouring::Place SyntaxColouring::lastSurePlace(long from, long line) const
{
    const long lineStart = m_editor.SendScintilla(Sci::SCI_POSITIONFROMLINE, line);
    const long sure = from - reachOfEdit;
    for (long at = sure; at > std::max(lineStart, sure - longLine); --at) {
        if (kindAt(at) == TextKind::Blank)
            return {at, ColourTokenizer::Between};
    }
    if (line == 0)
        return {lineStart, ColourTokenizer::Between};
    return {lineStart, static_cast<int>(m_editor.SendScintilla(Sci::SCI_GETLINESTATE, line - 1))};
}

/// Whether @p position lies after every change and was coloured before them.
bool SyntaxColouring::wasColoured(long position) const
{
    return position > m_changedEnd && position < m_colouredEnd;
}

/// Colours the rest of the line at @p place and moves @p place to its end.
/// @param text  begins at the position @p textBegin
/// @returns whether everything from there on has its colours already
bool SyntaxColouring::colourLine(const QByteArray &text, long textBegin, Place &place)
{
    const char *at = text.constData() + (place.position - textBegin);
    const char *const textEnd = text.constData() + text.size();
    const auto *lineFeed =
        static_cast<const char *>(std::memchr(at, '\n', static_cast<std::size_t>(textEnd - at)));
    const char *const lineEnd = lineFeed ? lineFeed + 1 : textEnd;
    const bool isLong = lineEnd - at > longLine;
    m_styles.setAlternating(isLong);
    if (lineEnd - at > hugeLine)
        growPositionCache(lineEnd - at);
    while (at != lineEnd) {
        const ColourTokenizer::Token token = m_tokenizer.next(at, lineEnd, place.state);
        if (isLong && token.kind == TextKind::Blank && wasColoured(place.position) &&
            kindAt(place.position) == TextKind::Blank)
            return true;
        appendStyle(token.kind, at, place.position, token.length);
        place = {place.position + static_cast<long>(token.length), token.state};
        at += token.length;
    }
    return false;
}

/// Notes the state at a line's end. @returns whether it is the one that was noted before
bool SyntaxColouring::keepState(long line, ColourTokenizer::State state)
{
    if (m_editor.SendScintilla(Sci::SCI_GETLINESTATE, line) == state)
        return true;
    m_editor.SendScintilla(Sci::SCI_SETLINESTATE, line, static_cast<long>(state));
    return false;
}

TextKind SyntaxColouring::kindAt(long position) const
{
    return static_cast<TextKind>(m_editor.SendScintilla(Sci::SCI_GETSTYLEAT, position) & kindMask);
}

void SyntaxColouring::appendStyle(TextKind kind, const char *text, long position, long length)
{
    if (m_formats.fonts().size() == 1) {
        m_styles.append(static_cast<int>(kind), text, length);
        return;
    }
    const long end = position + length;
    while (position < end) {
        const long next = std::min(m_formats.fontEnd(position), end);
        const int style = firstStyle(m_formats.fontSlotAt(position)) + static_cast<int>(kind);
        m_styles.append(style, text, next - position);
        text += next - position;
        position = next;
    }
}

/// The widget remembers the widths of short stretches of text. In a line that holds more of them
/// than it has room for it would measure nearly all of them again at every key.
void SyntaxColouring::growPositionCache(long lineLength)
{
    constexpr long most = 1 << 20;
    const long wanted = std::min(lineLength, most);
    if (m_editor.SendScintilla(Sci::SCI_GETPOSITIONCACHE) < wanted)
        m_editor.SendScintilla(Sci::SCI_SETPOSITIONCACHE, wanted);
}

/// A line this long is laid out at once when the caret is looked for, and again when its styles
/// change before it is painted: they are better right at once.
void SyntaxColouring::colourHugeLine(long position)
{
    const long line = m_editor.SendScintilla(Sci::SCI_LINEFROMPOSITION, position);
    const long begin = m_editor.SendScintilla(Sci::SCI_POSITIONFROMLINE, line);
    const long end = m_editor.SendScintilla(Sci::SCI_POSITIONFROMLINE, line + 1);
    if (end - begin > hugeLine && wasColoured(end - 1))
        colourTo(position);
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
