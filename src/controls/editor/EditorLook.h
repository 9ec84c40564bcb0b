#pragma once

#include "controls/forms/ColourTheme.h"

#include <QFont>
#include <QString>

class EditorFormats;
class QsciScintilla;
class SyntaxColouring;

/// How an editor looks around its words: paper, margins, caret, selection, braces, font.
class EditorLook
{
public:
    EditorLook(QsciScintilla &editor, SyntaxColouring &colouring, EditorFormats &formats);

    /// Gives everything its colours and fonts, the word colours among them.
    void apply();

    QColor background() const { return m_theme.background(); }
    void setBackground(const QColor &color);
    /// Takes the background from the palette again, unless setBackground() has chosen one.
    void followPalette();

    /// What text without a format of its own is written in.
    QFont font() const;
    void setFontName(const QString &family);

    /// Makes the margin as wide as the last line's number.
    void fitLineNumbers();
    /// Marks the brace at the caret and the one that belongs to it.
    void showMatchingBrace();

private:
    QsciScintilla &m_editor;
    SyntaxColouring &m_colouring;
    EditorFormats &m_formats;
    ColourTheme m_theme;
    bool m_hasOwnBackground = false;
    QString m_fontName;
};
