#include "controls/forms/ThemedIconEngine.h"

#include "controls/forms/iconImage.h"

#include <QGuiApplication>
#include <QPainter>
#include <QPalette>
#include <QPixmap>
#include <QPixmapCache>

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

} // namespace

ThemedIconEngine::ThemedIconEngine(QString name)
    : m_name(std::move(name))
{
}

void ThemedIconEngine::paint(QPainter *painter, const QRect &rect, QIcon::Mode mode,
                             QIcon::State state)
{
    const qreal scale = painter->device()->devicePixelRatio();
    painter->drawPixmap(rect, pixmap(rect.size() * scale, mode, state));
}

/// @param size  in pixels of the device
QPixmap ThemedIconEngine::pixmap(const QSize &size, QIcon::Mode mode, QIcon::State)
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
    QImage image = iconImage(m_name, size, colour);
    if (mode == QIcon::Disabled) {
        QPainter painter(&image);
        painter.setCompositionMode(QPainter::CompositionMode_DestinationIn);
        painter.fillRect(image.rect(), QColor(0, 0, 0, disabledAlpha));
    }
    pixmap = QPixmap::fromImage(image);
    QPixmapCache::insert(cacheKey, pixmap);
    return pixmap;
}

QPixmap ThemedIconEngine::scaledPixmap(const QSize &size, QIcon::Mode mode, QIcon::State state,
                                       qreal)
{
    return pixmap(size, mode, state);
}

QIconEngine *ThemedIconEngine::clone() const
{
    return new ThemedIconEngine(*this);
}

QString ThemedIconEngine::key() const
{
    return u"querna"_s;
}
