#pragma once

#include <QByteArray>
#include <QIconEngine>
#include <QString>

/// Draws an icon from SVG, `currentColor` in it being the text colour of the program's palette.
class SvgIconEngine : public QIconEngine
{
public:
    /// @param name  tells the picture from others in the pixmap cache
    SvgIconEngine(QString name, QByteArray svg);

    void paint(QPainter *painter, const QRect &rect, QIcon::Mode mode, QIcon::State state) override;
    QPixmap pixmap(const QSize &size, QIcon::Mode mode, QIcon::State state) override;
    QPixmap scaledPixmap(const QSize &size, QIcon::Mode mode, QIcon::State state,
                         qreal scale) override;
    QIconEngine *clone() const override;
    QString key() const override;

private:
    QString m_name;
    QByteArray m_svg;
};
