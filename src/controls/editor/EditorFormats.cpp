#include "controls/editor/EditorFormats.h"

#include <Qsci/qsciscintillabase.h>

#include <algorithm>

namespace {

using Sci = QsciScintillaBase;

// Indicators that the formats live in.
constexpr int colorIndicator = Sci::INDIC_CONTAINER;
constexpr int blackIndicator = Sci::INDIC_CONTAINER + 1;
constexpr int fontIndicator = Sci::INDIC_CONTAINER + 2;
constexpr int underlineIndicator = Sci::INDIC_CONTAINER + 3;
constexpr int strikeIndicator = Sci::INDIC_CONTAINER + 4;

// Set on every colour value, so that it is never 0, which would mean no colour at all.
constexpr int colorIsSet = Sci::SC_INDICVALUEBIT;
constexpr int black = 0;

/// The widget's colours have red in their low byte.
int widgetColor(int rgb)
{
    return ((rgb & 0xFF) << 16) | (rgb & 0xFF00) | ((rgb >> 16) & 0xFF);
}

int rgbOf(const QColor &color)
{
    return static_cast<int>(color.rgb() & 0xFFFFFFU);
}

} // namespace

EditorFormats::EditorFormats(QsciScintillaBase &editor)
    : m_editor(editor)
    , m_fonts(1)
{
    const auto define = [this](int indicator, int style) {
        m_editor.SendScintilla(Sci::SCI_INDICSETSTYLE, indicator, style);
        m_editor.SendScintilla(Sci::SCI_INDICSETUNDER, indicator, 0L);
    };
    define(colorIndicator, Sci::INDIC_TEXTFORE);
    define(blackIndicator, Sci::INDIC_TEXTFORE);
    define(fontIndicator, Sci::INDIC_HIDDEN);
    define(underlineIndicator, Sci::INDIC_PLAIN);
    define(strikeIndicator, Sci::INDIC_STRIKE);
    // The value of the range is its colour.
    m_editor.SendScintilla(Sci::SCI_INDICSETFLAGS, colorIndicator,
                           static_cast<long>(Sci::SC_INDICFLAG_VALUEBEFORE));
}

void EditorFormats::setColor(const QColor &color)
{
    const int rgb = rgbOf(color);
    for (const ByteRange &range : selectedRanges(m_editor)) {
        // Black ends a colour that was set for insertions: what follows is coloured as usual.
        if (range.length() == 0)
            pending(range.begin).color = rgb == black ? std::nullopt : std::optional(rgb);
        else
            setColor(range, color);
    }
}

void EditorFormats::setColor(const ByteRange &range, const QColor &color)
{
    setValue(colorIndicator, 0, range.begin, range.length());
    setValue(blackIndicator, 0, range.begin, range.length());
    apply({.color = rgbOf(color)}, range.begin, range.length());
}

void EditorFormats::setPoints(double points)
{
    changeFonts([points](FontFormat &font) { font.points = std::clamp(points, 1.0, 400.0); });
}

void EditorFormats::setBold(bool on)
{
    changeFonts([on](FontFormat &font) { font.bold = on; });
}

void EditorFormats::setItalic(bool on)
{
    changeFonts([on](FontFormat &font) { font.italic = on; });
}

void EditorFormats::setUnderline(bool on)
{
    setFlag(underlineIndicator, on, &Format::underline);
}

void EditorFormats::setStrikeThru(bool on)
{
    setFlag(strikeIndicator, on, &Format::strikeThru);
}

void EditorFormats::setFlag(int indicator, bool on, bool Format::*flag)
{
    for (const ByteRange &range : selectedRanges(m_editor)) {
        if (range.length() == 0)
            pending(range.begin).*flag = on;
        else
            setValue(indicator, on, range.begin, range.length());
    }
}

EditorFormats::Format EditorFormats::forInsertion(const ByteRange &range)
{
    const long at = range.begin;
    if (m_pendingAt != at || range.length() > 0)
        forgetPending();
    if (range.length() == 0)
        return m_pendingAt < 0 ? Format() : m_pending;
    Format format;
    if (valueAt(blackIndicator, at) != 0)
        format.color = black;
    else if (const int color = valueAt(colorIndicator, at); color != 0)
        format.color = widgetColor(color & Sci::SC_INDICVALUEMASK);
    format.font = fontSlotAt(at);
    format.underline = valueAt(underlineIndicator, at) != 0;
    format.strikeThru = valueAt(strikeIndicator, at) != 0;
    return format;
}

void EditorFormats::apply(const Format &format, long begin, long length)
{
    if (format.color == black)
        setValue(blackIndicator, 1, begin, length);
    else if (format.color)
        setValue(colorIndicator, widgetColor(*format.color) | colorIsSet, begin, length);
    if (format.font != 0) {
        setValue(fontIndicator, format.font, begin, length);
        m_fontsChanged(begin, begin + length);
    }
    if (format.underline)
        setValue(underlineIndicator, 1, begin, length);
    if (format.strikeThru)
        setValue(strikeIndicator, 1, begin, length);
}

void EditorFormats::continueAt(long position)
{
    if (m_pendingAt >= 0)
        m_pendingAt = position;
}

void EditorFormats::textInserted(long begin, long length)
{
    if (begin != m_pendingAt) {
        forgetPending();
        return;
    }
    apply(m_pending, begin, length);
    m_pendingAt += length;
}

void EditorFormats::setTextColor(const QColor &color)
{
    for (const int indicator : {blackIndicator, underlineIndicator, strikeIndicator})
        m_editor.SendScintilla(Sci::SCI_INDICSETFORE, indicator,
                               static_cast<long>(widgetColor(rgbOf(color))));
}

int EditorFormats::fontSlotAt(long position) const
{
    return m_fonts.size() > 1 ? valueAt(fontIndicator, position) : 0;
}

long EditorFormats::fontEnd(long position) const
{
    const long length = m_editor.SendScintilla(Sci::SCI_GETLENGTH);
    if (m_fonts.size() == 1)
        return length;
    const long end = m_editor.SendScintilla(Sci::SCI_INDICATOREND, fontIndicator, position);
    // A document without a single formatted stretch answers 0.
    return end > position ? end : length;
}

template <typename Change>
void EditorFormats::changeFonts(Change change)
{
    const auto changed = [this, change](int slot) {
        FontFormat font = m_fonts[static_cast<std::size_t>(slot)];
        change(font);
        return slotOf(font);
    };
    for (const ByteRange &range : selectedRanges(m_editor)) {
        if (range.length() == 0)
            pending(range.begin).font = changed(pending(range.begin).font);
        for (long at = range.begin; at < range.end;) {
            const long next = std::min(fontEnd(at), range.end);
            setValue(fontIndicator, changed(fontSlotAt(at)), at, next - at);
            at = next;
        }
        if (range.length() > 0)
            m_fontsChanged(range.begin, range.end);
    }
}

int EditorFormats::slotOf(const FontFormat &font)
{
    auto found = std::find(m_fonts.begin(), m_fonts.end(), font);
    if (found == m_fonts.end()) {
        if (m_fonts.size() == fontSlots)
            return fontSlots - 1; // more fonts than the widget has styles for
        found = m_fonts.insert(m_fonts.end(), font);
    }
    return static_cast<int>(found - m_fonts.begin());
}

void EditorFormats::setValue(int indicator, int value, long begin, long length)
{
    m_editor.SendScintilla(Sci::SCI_SETINDICATORCURRENT, indicator);
    if (value == 0) {
        m_editor.SendScintilla(Sci::SCI_INDICATORCLEARRANGE, begin, length);
        return;
    }
    m_editor.SendScintilla(Sci::SCI_SETINDICATORVALUE, value);
    m_editor.SendScintilla(Sci::SCI_INDICATORFILLRANGE, begin, length);
}

int EditorFormats::valueAt(int indicator, long position) const
{
    return static_cast<int>(m_editor.SendScintilla(Sci::SCI_INDICATORVALUEAT, indicator, position));
}

EditorFormats::Format &EditorFormats::pending(long position)
{
    if (m_pendingAt != position) {
        m_pending = Format();
        m_pendingAt = position;
    }
    return m_pending;
}
