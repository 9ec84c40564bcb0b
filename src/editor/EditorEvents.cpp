#include "editor/EditorEvents.h"

#include "controls/editor/EditorControl.h"
#include "platform/numberForms.h"

using namespace Qt::StringLiterals;

namespace {

QString caretText(int line, int column)
{
    return u" Line: %1 Col: %2"_s.arg(QString::number(line), QString::number(column));
}

bool isTabStop(const QWidget &control)
{
    return (control.focusPolicy() & Qt::TabFocus) != 0;
}

void setTabStop(QWidget &control, bool on)
{
    const int others = control.focusPolicy() & ~Qt::TabFocus;
    control.setFocusPolicy(static_cast<Qt::FocusPolicy>(on ? others | Qt::TabFocus : others));
}

} // namespace

EditorEvents::EditorEvents(EditorControl &editor, QWidget &window, ShowCaret showCaret,
                           const WordClasses &classes)
    : txtSQL(editor)
    , m_window(window)
    , m_showCaret(std::move(showCaret))
    , m_classes(classes)
{
    txtSQL.setWordClasses(m_classes);
    connect(&txtSQL, &EditorControl::caretMoved, this, &EditorEvents::txtSQL_CaretMoved);
    connect(&txtSQL, &EditorControl::keyWentDown, this, &EditorEvents::txtSQL_KeyDown);
    connect(&txtSQL, &EditorControl::focusEntered, this, &EditorEvents::txtSQL_GotFocus);
    connect(&txtSQL, &EditorControl::focusLeft, this, &EditorEvents::txtSQL_LostFocus);
    m_caret = txtSQL.SelStart();
}

void EditorEvents::showCaretPosition()
{
    m_showCaret(caretText(CurrentLine(txtSQL), CurrentColumn(txtSQL)));
}

void EditorEvents::txtSQL_CaretMoved(int column, int line)
{
    m_caret = txtSQL.SelStart();
    m_showCaret(caretText(line, column));
}

void EditorEvents::txtSQL_KeyDown(int keyCode, int shift)
{
    m_lastKeyClass = keyClass(keyCode, shift);
}

void EditorEvents::txtSQL_GotFocus()
{
    m_savedTabStops.clear();
    for (QWidget *control : m_window.findChildren<QWidget *>()) {
        // What passes its focus on is no stop itself, and would pass the flag on as well.
        if (control->focusProxy())
            continue;
        m_savedTabStops.emplace_back(control, isTabStop(*control));
        setTabStop(*control, false);
    }
}

void EditorEvents::txtSQL_LostFocus()
{
    // A control that came meanwhile has no entry and keeps what it has.
    for (const auto &[control, tabStop] : m_savedTabStops) {
        if (control)
            setTabStop(*control, tabStop);
    }
    m_savedTabStops.clear();
}

WordAtCaret EditorEvents::wordAtCaret() const
{
    return ::wordAtCaret(txtSQL.Text(), m_caret, m_lastKeyClass);
}

void EditorEvents::colourRange(int start, int length, int group)
{
    const int colour = m_classes.classColours.at(static_cast<std::size_t>(group));
    txtSQL.setColorBetween(start - 1, start - 1 + length,
                           QColor::fromRgb(static_cast<QRgb>(colour)));
}

int EditorEvents::colourWordAtCaret()
{
    const WordAtCaret found = wordAtCaret();
    if (found.length == 0)
        return -1;
    const int group = keywordGroup(found.word, m_classes.keywordTable);
    colourRange(found.start, found.length, group);
    return group;
}

qint32 CurrentLine(const EditorControl &txt)
{
    return txt.lineFromCharacter(txt.SelStart()) + 1;
}

qint32 CurrentColumn(const EditorControl &txt)
{
    const int start = txt.SelStart();
    return start + 1 - txt.lineIndex(txt.lineFromCharacter(start));
}

qint32 caretLineColumn(const EditorControl &txt)
{
    constexpr int caretLine = -1;
    const auto line = checkedCast<qint16>(txt.lineFromCharacter(caretLine) + 1);
    const auto column = checkedCast<qint16>(txt.SelStart() - txt.lineIndex(caretLine) + 1);
    return (qint32{line} << 16) | column;
}
