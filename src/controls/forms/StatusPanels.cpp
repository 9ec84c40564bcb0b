#include "controls/forms/StatusPanels.h"

#include <QEvent>
#include <QHBoxLayout>
#include <QLabel>
#include <QTextDocument>

using namespace Qt::StringLiterals;

namespace {

constexpr int textMargin = 6;

struct Panel
{
    const char *purpose;   ///< what a screen reader calls it
    const char *usualText; ///< the longest one, which the panel is as wide as
};

/// The second panel, whose texts differ in length, takes what the others leave as well.
constexpr std::size_t growingPanel = 1;

constexpr std::array<Panel, StatusPanels::panelCount> panels = {
    {{QT_TRANSLATE_NOOP("StatusPanels", "Caret position"), " Line: 100000 Col: 1000"},
     {QT_TRANSLATE_NOOP("StatusPanels", "Information"), "14 rows changed, not committed"},
     {QT_TRANSLATE_NOOP("StatusPanels", "Elapsed time"), "1000.123 msec"},
     {QT_TRANSLATE_NOOP("StatusPanels", "Records"), "Records Retrieved: 10000000"},
     {QT_TRANSLATE_NOOP("StatusPanels", "Time of execution"),
      "Query executed at 12/30/2000 20:00:00"}}};

} // namespace

StatusPanels::StatusPanels(const QString &objectName, QWidget *parent)
    : QWidget(parent)
{
    setObjectName(objectName);
    setAccessibleName(tr("Status bar"));
    auto *row = new QHBoxLayout(this);
    row->setContentsMargins({});
    row->setSpacing(2);
    for (std::size_t i = 0; i < panelCount; ++i) {
        auto *panel = new QLabel(this);
        panel->setObjectName(u"%1_%2"_s.arg(objectName).arg(i + 1));
        panel->setAccessibleName(tr(panels[i].purpose));
        panel->setTextFormat(Qt::PlainText);
        panel->setFrameStyle(QFrame::Panel | QFrame::Sunken);
        panel->setIndent(textMargin);
        panel->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Expanding);
        row->addWidget(panel);
        m_labels[i] = panel;
    }
    setWidths();
}

/// In a window that is too narrow all of them give way alike.
void StatusPanels::setWidths()
{
    auto *row = static_cast<QHBoxLayout *>(layout());
    for (std::size_t i = 0; i < panelCount; ++i) {
        const QLatin1StringView text(panels[i].usualText);
        const int width = fontMetrics().horizontalAdvance(text) + 2 * textMargin;
        if (i != growingPanel)
            m_labels[i]->setMaximumWidth(width);
        row->setStretch(static_cast<int>(i), width);
    }
}

void StatusPanels::changeEvent(QEvent *event)
{
    QWidget::changeEvent(event);
    if (event->type() == QEvent::FontChange)
        setWidths();
}

void StatusPanels::setPanelText(int panel, const QString &text)
{
    if (panel < 1 || panel > panelCount)
        return;
    QLabel *const label = m_labels[static_cast<std::size_t>(panel - 1)];
    if (label->text() == text)
        return;
    label->setText(text);
    label->setAccessibleDescription(text);
    // For what is cut off.
    label->setToolTip(text.isEmpty() ? QString()
                                     : Qt::convertFromPlainText(text, Qt::WhiteSpaceNormal));
}
