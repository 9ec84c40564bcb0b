#include "controls/editor/StyleBytes.h"

#include "platform/textForms.h"

#include <cstring>

namespace {

// The widget remembers runs of fewer than 30 bytes.
constexpr int longestRun = 24;
constexpr int shortestRun = 8;

/// Whether the text is cut before @p byte; about one byte in eight says so.
bool isCut(char byte)
{
    return (static_cast<unsigned char>(byte) & 7U) == 0;
}

} // namespace

void StyleBytes::start(qsizetype length)
{
    m_bytes.resize(length);
    m_size = 0;
    m_style = -1;
}

void StyleBytes::setAlternating(bool on)
{
    m_alternating = on;
    m_style = -1;
}

void StyleBytes::append(int style, const char *text, qsizetype length)
{
    if (m_alternating) {
        appendAlternating(style, text, length);
        return;
    }
    std::memset(m_bytes.data() + m_size, style, static_cast<std::size_t>(length));
    m_size += length;
}

void StyleBytes::appendAlternating(int style, const char *text, qsizetype length)
{
    if (style != m_style) {
        m_style = style;
        m_turn = 0;
        m_runLength = 0;
    }
    char *to = m_bytes.data() + m_size;
    for (qsizetype i = 0; i < length; ++i) {
        const bool mayCut = m_runLength >= shortestRun && !isContinuation(text[i]);
        if (mayCut && (isCut(text[i]) || m_runLength >= longestRun)) {
            m_turn ^= alternation;
            m_runLength = 0;
        }
        to[i] = static_cast<char>(style | m_turn);
        ++m_runLength;
    }
    m_size += length;
}
