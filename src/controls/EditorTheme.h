#pragma once

#include <QColor>

/// The colours of an editor that follow from its background, so that everything can be read on a
/// light background as well as on a dark one.
class EditorTheme
{
public:
    explicit EditorTheme(const QColor &background);

    QColor background() const { return m_background; }
    /// Plain text and caret.
    QColor text() const { return m_text; }
    QColor lineNumber() const;
    QColor margin() const;
    QColor currentLine() const;
    QColor selection() const;
    QColor brace() const;
    QColor unmatchedBrace() const;

    /// @p color itself where it can be read; otherwise the nearest lighter or darker one that can.
    /// Black is the colour of plain text and comes out as that.
    QColor readable(const QColor &color) const;

private:
    QColor blend(const QColor &color, double share) const;

    QColor m_background;
    QColor m_text;
};
