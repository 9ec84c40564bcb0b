#pragma once

#include "controls/editor/EditorFormats.h"
#include "controls/editor/StyleBytes.h"
#include "controls/forms/ColourTheme.h"
#include "sqltext/ColourTokenizer.h"

#include <QString>

class QsciScintillaBase;

/// Colours the editor's text: asked by the widget for what is about to be shown, it writes the
/// widget's style bytes, which are neither text nor steps for undo.
///
/// Positions and lengths are the widget's: bytes of UTF-8.
///
/// The state at every line's end is kept, so that after an edit only the lines are looked at again
/// whose colours can have changed.
class SyntaxColouring
{
public:
    SyntaxColouring(QsciScintillaBase &editor, const EditorFormats &formats);

    void setDefinition(const SyntaxDefinition &definition);
    void setWordClasses(const WordClasses &classes);
    /// Gives every style its font and its colour on the theme's background.
    void setLook(const ColourTheme &theme, const QString &family, double points);

    /// The widget needs the colours up to @p position.
    void colourTo(long position);
    /// Text comes in or goes.
    void textInserted(long begin, long length);
    void textDeleted(long begin, long length);
    /// The text around @p position has changed: gives a line its colours at once that is so long
    /// that laying it out twice would be felt.
    void colourHugeLine(long position);
    /// Nothing of the text has its colours any more.
    void colourEverythingAgain();
    /// Has a range of bytes coloured again.
    void colourAgain(long begin, long end);

private:
    /// A position with the tokenizer's state there.
    struct Place
    {
        long position = 0;
        ColourTokenizer::State state = ColourTokenizer::Between;
    };

    long colourLines(long from, long wanted);
    Place lastSurePlace(long from, long line) const;
    bool wasColoured(long position) const;
    bool colourLine(const QByteArray &text, long textBegin, Place &place);
    bool keepState(long line, ColourTokenizer::State state);
    TextKind kindAt(long position) const;
    void appendStyle(TextKind kind, const char *text, long position, long length);
    void growPositionCache(long lineLength);
    void setStyleLooks(int slot, const FontFormat &font, const ColourTheme &theme,
                       const QString &family, double points);
    TextLook lookOf(TextKind kind) const;

    QsciScintillaBase &m_editor;
    const EditorFormats &m_formats;
    ColourTokenizer m_tokenizer;
    SyntaxDefinition m_definition;
    WordClasses m_classes;
    StyleBytes m_styles;
    /// End of the text that has been coloured at some time and not been changed since...
    long m_colouredEnd = 0;
    /// ... apart from what lies before this one.
    long m_changedEnd = 0;
};
