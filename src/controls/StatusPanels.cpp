#include "controls/StatusPanels.h"

#include "controls/FramePacer.h"

#include <QHelpEvent>
#include <QLabel>
#include <QPaintEvent>
#include <QPainter>
#include <QStyle>
#include <QStyleOptionFrame>
#include <QToolTip>

#include <algorithm>
#include <numeric>

using namespace Qt::StringLiterals;

namespace {

constexpr int textMargin = 6;
constexpr int panelGap = 2;

/// The panels' longest usual texts, which they are as wide as. The rest of the bar goes to the
/// second panel, whose text comes and goes.
const std::array<QString, StatusPanels::panelCount> &usualTexts()
{
    static const std::array<QString, StatusPanels::panelCount> texts = {
        u" Line: 100000 Col: 1000"_s, QString(), u"1000.123 msec"_s,
        u"Records Retrieved: 10000000"_s, u"Query executed at 12/30/2000 20:00:00"_s};
    return texts;
}

constexpr std::size_t sparePanel = 1;

QString panelPurpose(int index)
{
    const std::array<QString, StatusPanels::panelCount> purposes = {
        StatusPanels::tr("Caret position"), StatusPanels::tr("Information"),
        StatusPanels::tr("Elapsed time"), StatusPanels::tr("Records"),
        StatusPanels::tr("Time of execution")};
    return purposes[static_cast<std::size_t>(index)];
}

} // namespace

StatusPanels::StatusPanels(const QString &objectName, QWidget *parent)
    : QFrame(parent)
    , m_pacer(new FramePacer([this] { takeTexts(); }, this))
{
    setObjectName(objectName);
    setAccessibleName(tr("Status bar"));
    for (int i = 0; i < panelCount; ++i) {
        auto *panel = new QLabel(this);
        panel->setObjectName(u"%1_%2"_s.arg(objectName).arg(i + 1));
        panel->setAccessibleName(panelPurpose(i));
        panel->setTextFormat(Qt::PlainText);
        panel->setUpdatesEnabled(false);
        m_labels[static_cast<std::size_t>(i)] = panel;
    }
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
}

void StatusPanels::setPanelText(int panel, const QString &text)
{
    setPanelTextSoon(panel, text);
    showTexts();
}

void StatusPanels::setPanelTextSoon(int panel, const QString &text)
{
    if (panel < 1 || panel > panelCount)
        return;
    m_texts[static_cast<std::size_t>(panel - 1)] = text;
    m_pacer->request();
}

void StatusPanels::showTexts()
{
    m_pacer->flush();
}

void StatusPanels::takeTexts()
{
    for (std::size_t i = 0; i < panelCount; ++i) {
        QLabel *const panel = m_labels[i];
        if (panel->text() == m_texts[i])
            continue;
        panel->setText(m_texts[i]);
        panel->setAccessibleDescription(m_texts[i]);
        update(panel->geometry());
    }
}

/// The widths that the panels want, in pixels.
std::array<int, StatusPanels::panelCount> StatusPanels::usualWidths() const
{
    std::array<int, panelCount> widths{};
    std::transform(usualTexts().begin(), usualTexts().end(), widths.begin(),
                   [this](const QString &text) {
                       return fontMetrics().horizontalAdvance(text) + 2 * textMargin;
                   });
    return widths;
}

QSize StatusPanels::sizeHint() const
{
    const std::array<int, panelCount> widths = usualWidths();
    const int width = std::accumulate(widths.begin(), widths.end(), (panelCount - 1) * panelGap);
    return QSize(width, fontMetrics().height() + 8);
}

QSize StatusPanels::minimumSizeHint() const
{
    return QSize(0, sizeHint().height());
}

/// The labels are of fixed size and in no layout.
void StatusPanels::layOutPanels()
{
    std::array<int, panelCount> widths = usualWidths();
    const int spare = width() - sizeHint().width();
    widths[sparePanel] += std::max(0, spare);
    const double squeeze = std::min(1.0, double(width()) / sizeHint().width());
    int left = 0;
    for (std::size_t i = 0; i < panelCount; ++i) {
        QLabel *panel = m_labels[i];
        panel->setFixedSize(static_cast<int>(widths[i] * squeeze), height() - 2);
        panel->move(left, 1);
        left += panel->width() + panelGap;
    }
}

void StatusPanels::resizeEvent(QResizeEvent *event)
{
    QFrame::resizeEvent(event);
    layOutPanels();
}

void StatusPanels::changeEvent(QEvent *event)
{
    QFrame::changeEvent(event);
    if (event->type() == QEvent::FontChange) {
        updateGeometry();
        layOutPanels();
    }
}

QRect StatusPanels::textRect(const QLabel *panel) const
{
    return panel->geometry().adjusted(textMargin, 0, -textMargin, 0);
}

void StatusPanels::paintEvent(QPaintEvent *event)
{
    QFrame::paintEvent(event);
    QPainter painter(this);
    for (const QLabel *panel : m_labels) {
        if (event->region().intersects(panel->geometry()))
            paintPanel(painter, *panel);
    }
}

void StatusPanels::paintPanel(QPainter &painter, const QLabel &panel) const
{
    QStyleOptionFrame frame;
    frame.initFrom(this);
    frame.rect = panel.geometry();
    frame.frameShape = QFrame::Panel;
    frame.lineWidth = 1;
    frame.state |= QStyle::State_Sunken;
    style()->drawControl(QStyle::CE_ShapedFrame, &frame, &painter, this);
    const QRect room = textRect(&panel);
    const QString text = fontMetrics().elidedText(panel.text(), Qt::ElideRight, room.width());
    painter.drawText(room, Qt::AlignLeft | Qt::AlignVCenter | Qt::TextSingleLine, text);
}

/// A text that its panel is too narrow for is shown whole as a tooltip.
bool StatusPanels::event(QEvent *event)
{
    if (event->type() != QEvent::ToolTip)
        return QFrame::event(event);
    const auto *help = static_cast<QHelpEvent *>(event);
    for (const QLabel *panel : m_labels) {
        const bool cut = fontMetrics().horizontalAdvance(panel->text()) > textRect(panel).width();
        if (cut && panel->geometry().contains(help->pos())) {
            QToolTip::showText(help->globalPos(), panel->text(), this, panel->geometry());
            return true;
        }
    }
    QToolTip::hideText();
    event->ignore();
    return true;
}
