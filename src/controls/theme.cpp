#include "controls/theme.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QPalette>

namespace {

/// The colour on the way from @p from to @p to.
QColor between(const QColor &from, const QColor &to, float share)
{
    return QColor::fromRgbF(from.redF() + (to.redF() - from.redF()) * share,
                            from.greenF() + (to.greenF() - from.greenF()) * share,
                            from.blueF() + (to.blueF() - from.blueF()) * share);
}

} // namespace

void applyGridColours(QAbstractItemView *view)
{
    const QPalette program = QApplication::palette(view);
    const QColor base = program.color(QPalette::Active, QPalette::Base);
    const QColor text = program.color(QPalette::Active, QPalette::Text);
    const QColor accent = program.color(QPalette::Active, QPalette::Highlight);

    QPalette palette = view->palette();
    palette.setColor(QPalette::AlternateBase, between(base, text, 0.04F));
    palette.setColor(QPalette::Highlight, between(base, accent, 0.35F));
    palette.setColor(QPalette::Inactive, QPalette::Highlight, between(base, accent, 0.2F));
    palette.setColor(QPalette::HighlightedText, text);
    view->setPalette(palette);
}
