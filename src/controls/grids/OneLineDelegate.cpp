#include "controls/grids/gridLook.h"

#include <QPainter>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

bool endsLine(QChar c)
{
    return c == u'\n' || c == u'\r' || c == QChar::LineSeparator || c == QChar::ParagraphSeparator;
}

bool isControl(QChar c)
{
    return c < u' ' || endsLine(c);
}

/// The part of @p text that can be seen in @p width pixels at most.
QString visiblePart(const QString &text, int width)
{
    constexpr int narrowestCharacter = 2;
    return text.left(std::max(width, 0) / narrowestCharacter + 1);
}

QPalette::ColorGroup colourGroup(QStyle::State state)
{
    if (!state.testFlag(QStyle::State_Enabled))
        return QPalette::Disabled;
    return state.testFlag(QStyle::State_Active) ? QPalette::Active : QPalette::Inactive;
}

} // namespace

QString OneLineDelegate::displayText(const QVariant &value, const QLocale &) const
{
    QString text = value.toString();
    if (std::none_of(text.cbegin(), text.cend(), isControl))
        return text;
    text.replace("\r\n"_L1, "\n"_L1);
    for (QChar &c : text) {
        if (endsLine(c))
            c = QChar(0x21B5);
        else if (isControl(c))
            c = u' ';
    }
    return text;
}

void OneLineDelegate::paint(QPainter *painter, const QStyleOptionViewItem &option,
                            const QModelIndex &index) const
{
    const QPalette::ColorGroup group = colourGroup(option.state);
    const bool selected = option.state.testFlag(QStyle::State_Selected);
    if (selected)
        painter->fillRect(option.rect, option.palette.brush(group, QPalette::Highlight));

    const QRect room = option.rect.adjusted(sideMargin, 0, -sideMargin, 0);
    QString text = visiblePart(displayText(index.data(), option.locale), room.width());
    int width = option.fontMetrics.horizontalAdvance(text);
    if (width > room.width()) {
        text = option.fontMetrics.elidedText(text, Qt::ElideRight, room.width());
        width = room.width();
    }
    const bool right = index.data(Qt::TextAlignmentRole).toInt() & Qt::AlignRight;
    const int left = right ? room.right() + 1 - width : room.left();
    const int baseline = room.top() + (room.height() - option.fontMetrics.height()) / 2 +
                         option.fontMetrics.ascent();
    painter->setPen(
        option.palette.color(group, selected ? QPalette::HighlightedText : QPalette::Text));
    painter->drawText(left, baseline, text);

    if (option.state.testFlag(QStyle::State_HasFocus)) {
        painter->setPen(option.palette.color(group, QPalette::Text));
        painter->drawRect(option.rect.adjusted(0, 0, -1, -1));
    }
}
