#pragma once

#include <QIconEngine>
#include <QString>

/// Draws one of the program's icons, in the text colour of the palette of the moment.
class ThemedIconEngine : public QIconEngine
{
public:
    /// @param name  of an icon that is there
    explicit ThemedIconEngine(QString name);

    void paint(QPainter *painter, const QRect &rect, QIcon::Mode mode, QIcon::State state) override;
    QPixmap pixmap(const QSize &size, QIcon::Mode mode, QIcon::State state) override;
    QPixmap scaledPixmap(const QSize &size, QIcon::Mode mode, QIcon::State state,
                         qreal scale) override;
    QIconEngine *clone() const override;
    QString key() const override;

private:
    QString m_name;
};
