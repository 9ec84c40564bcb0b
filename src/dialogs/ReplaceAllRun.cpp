#include "dialogs/ReplaceAllRun.h"

#include "platform/errorTraps.h"
#include "sqltext/ReplaceAll.h"

#include <QScopedValueRollback>

#include <algorithm>
#include <chrono>

using namespace std::chrono_literals;

namespace {

constexpr auto pauseBetweenPortions = 20ms;
constexpr qsizetype replacementsPerPortion = 100'000;
constexpr qsizetype growthPerPortion = 4096;

} // namespace

ReplaceAllRun::ReplaceAllRun(const EditorTarget &target, const QString &find,
                             const QString &replacement, QObject *parent)
    : QObject(parent)
    , m_target(target)
    , m_find(find)
    , m_replacement(replacement)
{
    m_pause.setSingleShot(true);
    m_pause.setInterval(pauseBetweenPortions);
    connect(&m_pause, &QTimer::timeout, this, [this] { endOnError([this] { goOn(); }); });
}

ReplaceAllRun::~ReplaceAllRun() = default;

void ReplaceAllRun::start()
{
    EditorControl &editor = m_target.control();
    // A large text tells only later that somebody types in it, a loaded file tells only as a whole.
    connect(&editor, &EditorControl::SCN_MODIFIED, this, &ReplaceAllRun::noteTextChange,
            Qt::UniqueConnection);
    connect(&editor, &EditorControl::textChanged, this, &ReplaceAllRun::noteTextChange,
            Qt::UniqueConnection);
    m_textChanged = false;
    const QString text = editor.Text();
    m_shownLength = text.size();
    m_work = std::make_unique<ReplaceAll>(text, m_find, m_replacement);
    // A replacement that brings the searched text again never ends, so that nothing is gained by
    // hurrying.
    const bool isEndless = m_replacement.contains(m_find);
    if (m_work->advance(isEndless ? portion() : text.size() + 1)) {
        showText();
        emit ended();
        return;
    }
    m_pause.start();
}

void ReplaceAllRun::goOn()
{
    if (!m_target.exists())
        emit ended();
    else if (m_textChanged)
        start();
    else
        replacePortion();
}

void ReplaceAllRun::replacePortion()
{
    const bool done = m_work->advance(portion());
    if (done || m_work->length() >= 2 * m_shownLength)
        showText();
    if (done)
        emit ended();
    else
        m_pause.start();
}

void ReplaceAllRun::showText()
{
    if (m_work->replaced() == 0)
        return;
    const QScopedValueRollback showing(m_showing, true);
    m_target.control().setText(m_work->text());
    m_shownLength = m_work->length();
}

void ReplaceAllRun::noteTextChange()
{
    if (!m_showing)
        m_textChanged = true;
}

qsizetype ReplaceAllRun::portion() const
{
    const qsizetype growth = m_replacement.size() - m_find.size();
    return growth > 0 ? std::max<qsizetype>(growthPerPortion / growth, 1) : replacementsPerPortion;
}
