#pragma once

#include <QByteArray>

/// The style bytes of a piece of text, put together from front to back.
///
/// The widget measures text in runs of one style and remembers the widths of short runs only. In
/// alternating mode, long runs are therefore cut: a style number and the one with the alternation
/// bit, which looks the same, take turns. Where the cuts are depends on the text itself, so that
/// an edit moves only those nearby.
class StyleBytes
{
public:
    /// Bit of a style number that the two looks-alike styles differ in.
    static constexpr int alternation = 16;

    /// Begins a new piece of at most @p length bytes.
    void start(qsizetype length);
    void setAlternating(bool on);
    /// The next @p length bytes of the text, @p text, have @p style.
    void append(int style, const char *text, qsizetype length);

    const char *data() const { return m_bytes.constData(); }
    qsizetype size() const { return m_size; }

private:
    void appendAlternating(int style, const char *text, qsizetype length);

    QByteArray m_bytes;
    qsizetype m_size = 0;
    bool m_alternating = false;
    int m_style = -1;
    int m_turn = 0;
    int m_runLength = 0;
};
