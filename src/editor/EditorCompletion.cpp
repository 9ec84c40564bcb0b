#include "editor/EditorCompletion.h"

#include "connection/session.h"
#include "controls/editor/EditorControl.h"
#include "controls/forms/WaitingLoop.h"
#include "sqltext/completion.h"
#include "sqltext/dictionary.h"

#include <algorithm>

namespace {

/// Characters on either side of the caret that are looked at for what the statement names.
constexpr int lookedAt = 100'000;

} // namespace

EditorCompletion::EditorCompletion(EditorControl &editor)
    : QObject(&editor)
    , txtSQL(editor)
    , m_popup(editor)
    , m_names(askDictionary)
{
    // The key's own handling is over before the server is asked.
    connect(&txtSQL, &EditorControl::completionWanted, this, &EditorCompletion::complete,
            Qt::QueuedConnection);
    connect(&m_popup, &CompletionPopup::taken, this, &EditorCompletion::take);
}

void EditorCompletion::complete()
{
    if (txtSQL.ReadOnly())
        return;
    if (m_asked.lock() != gConnection)
        m_names = DictionaryNames(askDictionary);
    else if (m_popup.isShown())
        m_names.forget();
    m_asked = gConnection;

    const int caret = txtSQL.caretPosition();
    const int start = txtSQL.lineIndex(txtSQL.lineFromCharacter(std::max(caret - lookedAt, 0)));
    const QString text = txtSQL.textBetween(start, std::min(caret + lookedAt, txtSQL.textLength()));
    const auto place = completionPlace(text, caret - start);
    if (!place)
        return;
    m_lowerCase = place->lowerCase;
    m_popup.show(completions(*place, m_names, gUserName.toUpper()),
                 start + static_cast<int>(place->begin));
}

/// The one place that waits for the server.
QStringList EditorCompletion::askDictionary(const QString &query)
{
    const HourglassPointer hourglass;
    return namesFromUnharmed(query, gConnection);
}

void EditorCompletion::take(const QString &name, int begin, int end)
{
    const QString text = completionText(name, m_lowerCase);
    txtSQL.exchange(begin, end, text);
    txtSQL.setSelStart(begin + static_cast<int>(text.size()));
}
