#include "app/FrameView.h"

#include "controls/editor/EditorControl.h"
#include "platform/errorTraps.h"
#include "platform/process.h"
#include "platform/settings.h"

#include <QEvent>
#include <QScreen>

#include <algorithm>
#include <chrono>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace {

/// In lines of the desktop's font, which is as large as its user needs it.
constexpr QSize firstSize(79, 56);
/// For what the desktop puts around a window, which nobody knows before it is shown.
constexpr QSize roomForDecoration(1, 3);
constexpr int smallestZoom = -10;
constexpr int largestZoom = 20;
constexpr auto pauseBeforeKeeping = 300ms;

const QString application = u"Querna"_s;
const QString section = u"Frame"_s;
const QString geometryKey = u"Geometry"_s;
const QString zoomKey = u"Zoom"_s;

} // namespace

FrameView::FrameView(QWidget &frame)
    : m_frame(frame)
{
    const int line = frame.fontMetrics().height();
    frame.resize(
        (firstSize * line).boundedTo(frame.screen()->availableSize() - roomForDecoration * line));
    frame.restoreGeometry(QByteArray::fromHex(remembered(geometryKey).toLatin1()));
    m_zoom = std::clamp(remembered(zoomKey).toInt(), smallestZoom, largestZoom);
    m_untilKept.setSingleShot(true);
    m_untilKept.setInterval(pauseBeforeKeeping);
    connect(&m_untilKept, &QTimer::timeout, this, &FrameView::keepChanges);
    frame.installEventFilter(this);
}

void FrameView::show()
{
    m_maximizedByStarter = startsMaximized();
    if (m_maximizedByStarter)
        m_frame.showMaximized();
    else
        m_frame.show();
}

void FrameView::follow(EditorControl &editor)
{
    editor.zoomTo(m_zoom);
    connect(&editor, &EditorControl::zoomed, this, [this, &editor] {
        m_zoom = editor.zoomLevel();
        m_untilKept.start();
    });
}

bool FrameView::eventFilter(QObject *, QEvent *event)
{
    switch (event->type()) {
    case QEvent::WindowStateChange:
        if (!m_frame.isMaximized() && !m_frame.isMinimized())
            m_maximizedByStarter = false;
        [[fallthrough]];
    case QEvent::Move:
    case QEvent::Resize:
        m_untilKept.start();
        break;
    case QEvent::Close:
        keepChanges();
        break;
    default:
        break;
    }
    return false;
}

void FrameView::keepChanges()
{
    m_untilKept.stop();
    if (!m_maximizedByStarter)
        remember(geometryKey, QString::fromLatin1(m_frame.saveGeometry().toHex()));
    remember(zoomKey, QString::number(m_zoom));
}

QString FrameView::remembered(const QString &key)
{
    ignoreErrors([&] { m_kept[key] = getSetting(application, section, key); });
    return m_kept.value(key);
}

void FrameView::remember(const QString &key, const QString &value)
{
    if (m_kept.value(key) == value)
        return;
    m_kept[key] = value;
    ignoreErrors([&] { saveSetting(application, section, key, value); });
}
