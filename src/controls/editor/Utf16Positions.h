#pragma once

class QsciScintillaBase;

/// Converts between positions in UTF-16 units and the editing widget's own byte positions.
///
/// The widget keeps an index of both counts by line, so a conversion costs no more than a look at
/// one line, and nothing where the line is plain ASCII.
class Utf16Positions
{
public:
    explicit Utf16Positions(QsciScintillaBase &editor);

    /// Has the index built anew by buildIndex() instead of kept up to date, which is quicker when
    /// the whole text is exchanged. No conversion works in between.
    void dropIndex();
    void buildIndex();

    /// Length of the whole text in UTF-16 units.
    int length() const;
    /// The byte position of a UTF-16 position; positions outside the text mean its nearer end.
    long toBytes(int units) const;
    int toUnits(long bytes) const;
    /// UTF-16 position of the first character of a 0-based line.
    int lineStart(int line) const;
    /// 0-based line of a UTF-16 position.
    int lineOf(int units) const;

private:
    bool isAscii(long line) const;

    QsciScintillaBase &m_editor;
};
