#pragma once

#include <QColor>

class QPalette;

/// The colours of our own in editor and grids. They follow from a background and the text on it, so
/// that everything can be read on a light desktop as well as on a dark one, whatever else is in its
/// palette: the contrast is 4.5 at least.
class ColourTheme
{
public:
    /// @param text  as long as it can be read; otherwise black, or the lighter one of two whites
    ColourTheme(const QColor &background, const QColor &text);
    /// Of the texts of an active window.
    explicit ColourTheme(const QPalette &palette);

    QColor background() const { return m_background; }
    /// Plain text and caret.
    QColor text() const { return m_text; }

    // What text() can be read on.
    QColor margin() const { return tinted(m_text, 0.05); }
    QColor currentLine() const { return tinted(m_text, 0.06); }
    QColor otherRow() const { return tinted(m_text, 0.04); }
    QColor selection() const { return tinted(QColor(0x3D, 0x8E, 0xE6), 0.32); }
    QColor brace() const { return tinted(QColor(0x2E, 0xA0, 0x43), 0.35); }
    QColor unmatchedBrace() const { return tinted(QColor(0xE0, 0x40, 0x40), 0.4); }
    /// The background with as much of a colour in it, up to @p share, as leaves text readable.
    QColor tinted(const QColor &color, double share) const;

    /// On the margin.
    QColor lineNumber() const;
    /// Between cells.
    QColor gridLine() const;
    /// @p color itself where it can be read as well as on white paper, on the current line too;
    /// otherwise the nearest lighter or darker one that can. Black is the colour of plain text and
    /// comes out as that.
    QColor readable(const QColor &color) const;

private:
    QColor m_background;
    QColor m_text;
};

/// Contrast ratio of two colours, 1 to 21.
double contrast(const QColor &a, const QColor &b);
