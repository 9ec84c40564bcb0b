#include "controls/editor/Utf16Positions.h"

#include "controls/editor/EditorText.h"
#include "platform/textForms.h"

#include <Qsci/qsciscintillabase.h>

#include <algorithm>

namespace {

using Sci = QsciScintillaBase;
constexpr long utf16Index = Sci::SC_LINECHARACTERINDEX_UTF16;

/// UTF-16 units that a byte of UTF-8 begins: characters of four bytes are surrogate pairs.
int unitsBegunBy(char byte)
{
    if (isContinuation(byte))
        return 0;
    return static_cast<unsigned char>(byte) >= 0xF0U ? 2 : 1;
}

} // namespace

Utf16Positions::Utf16Positions(QsciScintillaBase &editor)
    : m_editor(editor)
{
    buildIndex();
}

void Utf16Positions::dropIndex()
{
    m_editor.SendScintilla(Sci::SCI_RELEASELINECHARACTERINDEX, utf16Index);
}

void Utf16Positions::buildIndex()
{
    m_editor.SendScintilla(Sci::SCI_ALLOCATELINECHARACTERINDEX, utf16Index);
}

int Utf16Positions::length() const
{
    return lineStart(static_cast<int>(m_editor.SendScintilla(Sci::SCI_GETLINECOUNT)));
}

long Utf16Positions::toBytes(int units) const
{
    const int wanted = std::max(units, 0);
    const int line = lineOf(wanted);
    const long begin = m_editor.SendScintilla(Sci::SCI_POSITIONFROMLINE, line);
    const long end = m_editor.SendScintilla(Sci::SCI_POSITIONFROMLINE, line + 1);
    int left = wanted - lineStart(line);
    if (isAscii(line))
        return std::min(begin + left, end);
    const QByteArray text = textBytes(m_editor, {begin, end});
    const auto at = std::find_if(text.begin(), text.end(), [&left](char byte) {
        if (left <= 0 && !isContinuation(byte))
            return true;
        left -= unitsBegunBy(byte);
        return false;
    });
    return begin + static_cast<long>(at - text.begin());
}

int Utf16Positions::toUnits(long bytes) const
{
    const long line = m_editor.SendScintilla(Sci::SCI_LINEFROMPOSITION, bytes);
    const long begin = m_editor.SendScintilla(Sci::SCI_POSITIONFROMLINE, line);
    const int before = lineStart(static_cast<int>(line));
    if (isAscii(line))
        return before + static_cast<int>(bytes - begin);
    int units = before;
    for (const char byte : textBytes(m_editor, {begin, bytes}))
        units += unitsBegunBy(byte);
    return units;
}

int Utf16Positions::lineStart(int line) const
{
    return static_cast<int>(
        m_editor.SendScintilla(Sci::SCI_INDEXPOSITIONFROMLINE, line, utf16Index));
}

int Utf16Positions::lineOf(int units) const
{
    return static_cast<int>(
        m_editor.SendScintilla(Sci::SCI_LINEFROMINDEXPOSITION, units, utf16Index));
}

bool Utf16Positions::isAscii(long line) const
{
    const long begin = m_editor.SendScintilla(Sci::SCI_POSITIONFROMLINE, line);
    const long end = m_editor.SendScintilla(Sci::SCI_POSITIONFROMLINE, line + 1);
    const auto next = static_cast<int>(line + 1);
    return end - begin == lineStart(next) - lineStart(static_cast<int>(line));
}
