#include "app/RecoveryBar.h"

#include "platform/textForms.h"

#include <QAction>
#include <QLabel>

#include <utility>

using namespace Qt::StringLiterals;

namespace {

constexpr qsizetype shownBeginning = 40;
constexpr qsizetype longestBeginning = 300;
constexpr qint64 bytesOfBeginning = 3 * longestBeginning + 3; // of UTF-8, at most

} // namespace

RecoveryBar::RecoveryBar(QWidget *parent)
    : QToolBar(tr("Unexpected end"), parent)
    , m_label(new QLabel(this))
{
    setObjectName(u"tbrRecovery"_s);
    setMovable(false);
    toggleViewAction()->setVisible(false);
    m_label->setObjectName(u"lblRecovery"_s);
    m_label->setTextFormat(Qt::PlainText);
    m_label->setMargin(4);
    addWidget(m_label);
    const auto addButton = [this](const QString &name, const QString &text, auto handler) {
        QAction *action = addAction(text);
        action->setObjectName(name);
        connect(action, &QAction::triggered, this, handler);
    };
    addButton(u"tbrRecovery_Restore"_s, tr("Restore"), &RecoveryBar::restoreText);
    addButton(u"tbrRecovery_Discard"_s, tr("Discard"), &RecoveryBar::discardText);
    hide();
}

void RecoveryBar::offerLostTexts(Restore restore)
{
    m_restore = std::move(restore);
    m_texts.clear(); // they are found again
    m_texts = LostText::all();
    showOffer();
}

void RecoveryBar::restoreText()
{
    m_restore(QString::fromUtf8(m_texts.front()->text()));
    discardText();
}

void RecoveryBar::discardText()
{
    m_texts.front()->discard();
    m_texts.erase(m_texts.begin());
    showOffer();
}

void RecoveryBar::showOffer()
{
    setVisible(!m_texts.empty());
    if (m_texts.empty())
        return;
    const LostText &lost = *m_texts.front();
    const QString text = QString::fromUtf8(lost.text(bytesOfBeginning));
    const QString others =
        m_texts.size() == 1 ? QString() : tr(" (the first of %1)").arg(m_texts.size());
    m_label->setText(
        tr("Text of a window that ended unexpectedly, kept %1%2:  %3…")
            .arg(dateTimeToText(lost.time()), others, text.left(shownBeginning).simplified()));
    m_label->setToolTip(text.left(longestBeginning));
}
