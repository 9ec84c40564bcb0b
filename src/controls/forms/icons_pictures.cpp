#include "controls/forms/icons.h"

#include <QDir>
#include <QFile>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

QString folderOf(const QString &name)
{
    return u":/icons/"_s + name;
}

/// The picture that was drawn with `currentColor` as black or as white, in the size given or, where
/// none is as large, in the largest.
QImage picture(const QString &name, int size, const QString &drawnIn)
{
    const QDir folder(folderOf(name));
    QString best;
    for (const QString &file : folder.entryList({u"*-"_s + drawnIn + u".png"_s}, QDir::Files)) {
        best = file; // they come in the order of their sizes, which have three digits each
        if (QStringView(file).left(3).toInt() >= size)
            break;
    }
    return QImage(folder.filePath(best)).convertToFormat(QImage::Format_ARGB32_Premultiplied);
}

/// What lies between 0, drawn in black, and 255, drawn in white.
int between(int black, int white, int part)
{
    return black + (white - black) * part / 255;
}

} // namespace

bool hasIcon(const QString &name)
{
    return !name.isEmpty() && QFile::exists(folderOf(name));
}

QImage iconImage(const QString &name, const QSize &size, const QColor &colour)
{
    const int side = std::max(size.width(), size.height());
    QImage image = picture(name, side, u"black"_s);
    const QImage white = picture(name, side, u"white"_s);
    for (int y = 0; y < image.height(); ++y) {
        auto *const line = reinterpret_cast<QRgb *>(image.scanLine(y));
        const auto *const whiteLine = reinterpret_cast<const QRgb *>(white.constScanLine(y));
        for (int x = 0; x < image.width(); ++x) {
            const QRgb dark = line[x];
            const QRgb light = whiteLine[x];
            line[x] = qRgba(between(qRed(dark), qRed(light), colour.red()),
                            between(qGreen(dark), qGreen(light), colour.green()),
                            between(qBlue(dark), qBlue(light), colour.blue()), qAlpha(dark));
        }
    }
    return image.scaled(size, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
}
