#include "controls/EditorSearch.h"

#include "controls/EditorControl.h"
#include "controls/EditorReplaceDialog.h"

namespace {

bool isWordCharacter(QChar character)
{
    return character.isLetterOrNumber() || QStringView(u"_$#").contains(character);
}

/// The places where a text stands in another one; -1 means that there is none.
class Places
{
public:
    Places(const QString &text, const SearchText &wanted)
        : m_text(text)
        , m_wanted(wanted)
        , m_case(wanted.matchCase ? Qt::CaseSensitive : Qt::CaseInsensitive)
    {
    }

    qsizetype atOrAfter(qsizetype position) const
    {
        qsizetype at = m_text.indexOf(m_wanted.text, position, m_case);
        while (at >= 0 && !counts(at))
            at = m_text.indexOf(m_wanted.text, at + 1, m_case);
        return at;
    }

    /// The last one that ends at @p position or before.
    qsizetype endingBefore(qsizetype position) const
    {
        qsizetype at = lastFrom(position - m_wanted.text.size());
        while (at >= 0 && !counts(at))
            at = lastFrom(at - 1);
        return at;
    }

    /// Whether a range is an occurrence.
    bool isAt(qsizetype begin, qsizetype length) const
    {
        return length == m_wanted.text.size() && lastFrom(begin) == begin && counts(begin);
    }

private:
    qsizetype lastFrom(qsizetype position) const
    {
        // A negative position would count from the text's end.
        return position < 0 ? -1 : m_text.lastIndexOf(m_wanted.text, position, m_case);
    }

    bool counts(qsizetype at) const
    {
        if (!m_wanted.wholeWord)
            return true;
        const qsizetype end = at + m_wanted.text.size();
        return (at == 0 || !isWordCharacter(m_text.at(at - 1))) &&
               (end == m_text.size() || !isWordCharacter(m_text.at(end)));
    }

    const QString &m_text;
    const SearchText &m_wanted;
    Qt::CaseSensitivity m_case;
};

} // namespace

EditorSearch::EditorSearch(EditorControl &editor)
    : m_editor(editor)
{
}

EditorSearch::Result EditorSearch::find(const SearchText &wanted, Direction direction)
{
    if (wanted.text.isEmpty())
        return Result::NotFound;
    const QString text = m_editor.Text();
    const Places places(text, wanted);
    const bool forward = direction == Direction::Forward;
    const qsizetype begin = m_editor.SelStart();
    qsizetype found =
        forward ? places.atOrAfter(begin + m_editor.SelLength()) : places.endingBefore(begin);
    const bool wrapped = found < 0;
    if (wrapped)
        found = forward ? places.atOrAfter(0) : places.endingBefore(text.size());
    if (found < 0)
        return Result::NotFound;
    select(found, wanted.text.size());
    return wrapped ? Result::FoundAfterWrap : Result::Found;
}

EditorSearch::Result EditorSearch::replace(const SearchText &wanted, const QString &replacement)
{
    const QString text = m_editor.Text();
    if (Places(text, wanted).isAt(m_editor.SelStart(), m_editor.SelLength()))
        m_editor.setSelText(replacement);
    return find(wanted, Direction::Forward);
}

int EditorSearch::replaceAll(const SearchText &wanted, const QString &replacement)
{
    if (wanted.text.isEmpty() || m_editor.isReadOnly())
        return 0;
    const QString text = m_editor.Text();
    const Places places(text, wanted);
    const qsizetype begin = places.atOrAfter(0);
    // The text between the first and the last occurrence is put together here and exchanged at
    // once: replacing each in the widget would have it count a long line anew for each.
    QString exchanged;
    qsizetype end = begin;
    int count = 0;
    for (qsizetype at = begin; at >= 0; at = places.atOrAfter(end)) {
        exchanged += QStringView(text).mid(end, at - end);
        exchanged += replacement;
        end = at + wanted.text.size();
        ++count;
    }
    if (count > 0)
        m_editor.exchange(static_cast<int>(begin), static_cast<int>(end), exchanged);
    return count;
}

bool EditorSearch::isReadOnly() const
{
    return m_editor.isReadOnly();
}

void EditorSearch::select(qsizetype begin, qsizetype length)
{
    m_editor.setSelStart(static_cast<int>(begin));
    m_editor.setSelLength(static_cast<int>(length));
}

template <typename Dialog>
void EditorSearch::show(Dialog *&dialog)
{
    if (!dialog)
        dialog = new Dialog(*this, &m_editor);
    dialog->showFor(m_editor.SelText());
}

void EditorSearch::showFind()
{
    show(m_findDialog);
}

void EditorSearch::showReplace()
{
    show(m_replaceDialog);
}
