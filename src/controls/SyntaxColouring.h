#pragma once

#include "controls/EditorFormats.h"
#include "controls/EditorTheme.h"
#include "sqltext/SqlTokenizer.h"

#include <QByteArray>
#include <QString>

class QsciScintillaBase;

/// Colours the editor's text: asked by the widget for what is about to be shown, it writes the
/// widget's style bytes, which are neither text nor steps for undo.
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
    void setLook(const EditorTheme &theme, const QString &family, double points);

    /// The widget needs the colours up to @p position.
    void colourTo(long position);
    /// Text came in or went.
    void textInserted(long begin, long length);
    void textDeleted(long begin, long length);
    /// Has a range of bytes coloured again.
    void colourAgain(long begin, long end);

private:
    void colourEverythingAgain();
    long colourLines(long line, long wanted);
    long appendStyles(const char *at, const char *end, long position, SqlTokenizer::State &state);
    void appendStyle(TextKind kind, long position, long length);
    void write(long begin);
    void setStyleLooks(int slot, const FontFormat &font, const EditorTheme &theme,
                       const QString &family, double points);
    TextLook lookOf(TextKind kind) const;

    QsciScintillaBase &m_editor;
    const EditorFormats &m_formats;
    SqlTokenizer m_tokenizer;
    SyntaxDefinition m_definition;
    WordClasses m_classes;
    QByteArray m_styles;
    /// End of the text that has been coloured at some time and not been changed since...
    long m_colouredEnd = 0;
    /// ... apart from what lies before this one.
    long m_changedEnd = 0;
};
