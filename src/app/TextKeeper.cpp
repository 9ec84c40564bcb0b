#include "app/TextKeeper.h"

#include "controls/editor/EditorControl.h"
#include "platform/errorTraps.h"

#include <chrono>

using namespace std::chrono_literals;

namespace {

constexpr std::chrono::milliseconds pauseInTyping = 1s;
constexpr std::chrono::milliseconds longestUnkept = 5s;

} // namespace

TextKeeper::TextKeeper(EditorControl &editor)
    : QObject(&editor)
    , m_editor(editor)
{
    m_writer.setMaxThreadCount(1);
    m_untilKept.setSingleShot(true);
    connect(&m_untilKept, &QTimer::timeout, this, &TextKeeper::keepInPause);
    connect(&editor, &EditorControl::contentChanged, this, &TextKeeper::noteChange);
}

TextKeeper::~TextKeeper()
{
    m_writer.waitForDone();
}

/// Happens at every key, so that it does not set the timer anew.
void TextKeeper::noteChange()
{
    m_sinceChange.start();
    if (m_untilKept.isActive())
        return;
    m_sinceFirstChange.start();
    m_untilKept.start(pauseInTyping);
}

void TextKeeper::keepInPause()
{
    const std::chrono::milliseconds quiet(m_sinceChange.elapsed());
    if (quiet < pauseInTyping && !m_sinceFirstChange.hasExpired(longestUnkept.count()))
        m_untilKept.start(pauseInTyping - quiet);
    else
        keep();
}

void TextKeeper::keep()
{
    m_writer.start([this, text = m_editor.Text()] {
        // Nobody can do anything about it while typing, and the next change tries again.
        ignoreErrors([&] { m_file.keep(text.toUtf8()); });
    });
}

void TextKeeper::keepNow()
{
    m_untilKept.stop();
    keep();
    m_writer.waitForDone();
}
