#include "controls/forms/icons.h"

#include <QFile>
#include <QPainter>
#include <QSvgRenderer>

using namespace Qt::StringLiterals;

namespace {

QString pathOf(const QString &name)
{
    return u":/icons/%1.svg"_s.arg(name);
}

} // namespace

bool hasIcon(const QString &name)
{
    return QFile::exists(pathOf(name));
}

QImage iconImage(const QString &name, const QSize &size, const QColor &colour)
{
    QImage image(size, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    QFile file(pathOf(name));
    if (!file.open(QIODevice::ReadOnly))
        return image;
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    QSvgRenderer(file.readAll().replace("currentColor", colour.name().toLatin1())).render(&painter);
    return image;
}
