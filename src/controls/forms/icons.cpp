#include "controls/forms/icons.h"

#include <QGuiApplication>
#include <QIconEngine>
#include <QPainter>
#include <QPalette>
#include <QPixmapCache>

#include <utility>

using namespace Qt::StringLiterals;

static void initResources()
{
    Q_INIT_RESOURCE(resources);
}

namespace {

constexpr int disabledAlpha = 100;

QColor lineColour(QIcon::Mode mode)
{
    const QPalette palette = QGuiApplication::palette();
    return palette.color(QPalette::Active, mode == QIcon::Selected ? QPalette::HighlightedText
                                                                   : QPalette::ButtonText);
}

/// Draws one of the program's icons, in the text colour of the palette of the moment.
class ThemedIconEngine : public QIconEngine
{
public:
    explicit ThemedIconEngine(QString name)
        : m_name(std::move(name))
    {
    }

    void paint(QPainter *painter, const QRect &rect, QIcon::Mode mode, QIcon::State state) override
    {
        const qreal scale = painter->device()->devicePixelRatio();
        painter->drawPixmap(rect, pixmap(rect.size() * scale, mode, state));
    }
    /// @param size  in pixels of the device
    QPixmap pixmap(const QSize &size, QIcon::Mode mode, QIcon::State state) override;
    QIconEngine *clone() const override { return new ThemedIconEngine(*this); }

private:
    QString m_name;
};

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

} // namespace

QIcon themedIcon(const QString &name)
{
    static const bool initialised = (initResources(), true);
    Q_UNUSED(initialised);
    return hasIcon(name) ? QIcon(new ThemedIconEngine(name)) : QIcon();
}
