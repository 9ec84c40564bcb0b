#include "controls/SvgIconEngine.h"

#include <QGuiApplication>
#include <QPainter>
#include <QPalette>
#include <QPixmap>
#include <QPixmapCache>
#include <QSvgRenderer>

#include <utility>

using namespace Qt::StringLiterals;

namespace {

constexpr int disabledAlpha = 100;

QColor lineColour(QIcon::Mode mode)
{
    const QPalette palette = QGuiApplication::palette();
    return palette.color(QPalette::Active, mode == QIcon::Selected ? QPalette::HighlightedText
                                                                   : QPalette::ButtonText);
}

QByteArray coloured(QByteArray svg, const QColor &colour)
{
    return svg.replace("currentColor", colour.name().toLatin1());
}

} // namespace

SvgIconEngine::SvgIconEngine(QString name, QByteArray svg)
    : m_name(std::move(name))
    , m_svg(std::move(svg))
{
}

void SvgIconEngine::paint(QPainter *painter, const QRect &rect, QIcon::Mode mode,
                          QIcon::State state)
{
    const qreal scale = painter->device()->devicePixelRatio();
    painter->drawPixmap(rect, pixmap(rect.size() * scale, mode, state));
}

/// @param size  in pixels of the device
QPixmap SvgIconEngine::pixmap(const QSize &size, QIcon::Mode mode, QIcon::State)
{
    const QColor colour = lineColour(mode);
    const QString cacheKey = u"querna_%1_%2x%3_%4_%5"_s.arg(m_name)
                                 .arg(size.width())
                                 .arg(size.height())
                                 .arg(int(mode))
                                 .arg(colour.rgba());
    QPixmap pixmap;
    if (QPixmapCache::find(cacheKey, &pixmap))
        return pixmap;
    pixmap = QPixmap(size);
    pixmap.fill(Qt::transparent);
    QPainter painter(&pixmap);
    painter.setRenderHint(QPainter::Antialiasing);
    QSvgRenderer(coloured(m_svg, colour)).render(&painter);
    if (mode == QIcon::Disabled) {
        painter.setCompositionMode(QPainter::CompositionMode_DestinationIn);
        painter.fillRect(pixmap.rect(), QColor(0, 0, 0, disabledAlpha));
    }
    painter.end();
    QPixmapCache::insert(cacheKey, pixmap);
    return pixmap;
}

QPixmap SvgIconEngine::scaledPixmap(const QSize &size, QIcon::Mode mode, QIcon::State state, qreal)
{
    return pixmap(size, mode, state);
}

QIconEngine *SvgIconEngine::clone() const
{
    return new SvgIconEngine(*this);
}

QString SvgIconEngine::key() const
{
    return u"querna"_s;
}
