#include "controls/editor/EditorLook.h"

#include "controls/editor/EditorFormats.h"
#include "controls/editor/SyntaxColouring.h"
#include "controls/forms/measures.h"

#include <Qsci/qsciscintilla.h>

#include <algorithm>

namespace {

constexpr int lineNumberMargin = 0;
constexpr int symbolMargin = 1;
constexpr int symbolMarginWidth = 4;
constexpr int fewestLineNumberDigits = 3;
constexpr long gapBesideText = 4;

} // namespace

EditorLook::EditorLook(QsciScintilla &editor, SyntaxColouring &colouring, EditorFormats &formats)
    : m_editor(editor)
    , m_colouring(colouring)
    , m_formats(formats)
    , m_theme(editor.palette())
    , m_fontName(fixedWidthFamily())
{
    editor.setCaretLineVisible(true);
    editor.setCaretWidth(2);
    editor.setMarginLineNumbers(lineNumberMargin, true);
    editor.setMarginWidth(symbolMargin, symbolMarginWidth);
    editor.setMarginSensitivity(symbolMargin, false);
    editor.SendScintilla(QsciScintilla::SCI_SETMARGINLEFT, 0UL, gapBesideText);
}

void EditorLook::apply()
{
    m_editor.setPaper(m_theme.background());
    m_editor.setColor(m_theme.text());
    m_editor.setFont(font());
    m_colouring.setLook(m_theme, m_fontName, defaultPoints());
    m_formats.setTextColor(m_theme.text());
    m_editor.setCaretForegroundColor(m_theme.text());
    m_editor.SendScintilla(QsciScintilla::SCI_SETADDITIONALCARETFORE, m_theme.text());
    m_editor.setCaretLineBackgroundColor(m_theme.currentLine());
    m_editor.setSelectionBackgroundColor(m_theme.selection());
    m_editor.SendScintilla(QsciScintilla::SCI_SETADDITIONALSELBACK, m_theme.selection());
    m_editor.setSelectionForegroundColor(m_theme.text());
    m_editor.SendScintilla(QsciScintilla::SCI_SETADDITIONALSELFORE, m_theme.text());
    m_editor.setMarginsFont(font());
    m_editor.setMarginsForegroundColor(m_theme.lineNumber());
    m_editor.setMarginsBackgroundColor(m_theme.margin());
    m_editor.setMatchedBraceForegroundColor(m_theme.text());
    m_editor.setMatchedBraceBackgroundColor(m_theme.brace());
    m_editor.setUnmatchedBraceForegroundColor(m_theme.text());
    m_editor.setUnmatchedBraceBackgroundColor(m_theme.unmatchedBrace());
}

void EditorLook::setBackground(const QColor &color)
{
    m_theme = ColourTheme(color, m_editor.palette().color(QPalette::Active, QPalette::Text));
    m_hasOwnBackground = true;
    apply();
}

void EditorLook::followPalette()
{
    if (m_hasOwnBackground)
        return;
    m_theme = ColourTheme(m_editor.palette());
    apply();
}

QFont EditorLook::font() const
{
    return QFont(m_fontName, defaultPoints());
}

void EditorLook::setFontName(const QString &family)
{
    m_fontName = family;
    apply();
}

void EditorLook::fitLineNumbers()
{
    const auto digits = static_cast<int>(QString::number(m_editor.lines()).size());
    const QString widest(std::max(digits, fewestLineNumberDigits) + 1, u'9');
    m_editor.setMarginWidth(lineNumberMargin, widest);
}

void EditorLook::showMatchingBrace()
{
    const auto isBrace = [this](long position) {
        const auto byte =
            static_cast<char>(m_editor.SendScintilla(QsciScintilla::SCI_GETCHARAT, position));
        return byte != 0 && QByteArrayView("()[]{}").contains(byte);
    };
    const long caret = m_editor.SendScintilla(QsciScintilla::SCI_GETCURRENTPOS);
    long brace = -1;
    if (isBrace(caret))
        brace = caret;
    else if (caret > 0 && isBrace(caret - 1))
        brace = caret - 1;
    const long match =
        brace < 0 ? brace : m_editor.SendScintilla(QsciScintilla::SCI_BRACEMATCH, brace, 0L);
    if (match < 0)
        m_editor.SendScintilla(QsciScintilla::SCI_BRACEBADLIGHT, brace);
    else
        m_editor.SendScintilla(QsciScintilla::SCI_BRACEHIGHLIGHT, brace, match);
}
