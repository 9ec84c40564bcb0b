#include "controls/forms/OutputPane.h"

#include "controls/forms/selText.h"

#include <QKeyEvent>
#include <QMimeData>

bool OutputPane::event(QEvent *event)
{
    const bool claimsKey = event->type() == QEvent::ShortcutOverride;
    if (claimsKey && static_cast<QKeyEvent *>(event)->matches(QKeySequence::SelectAll))
        return true;
    return QPlainTextEdit::event(event);
}

QMimeData *OutputPane::createMimeDataFromSelection() const
{
    auto *copied = new QMimeData;
    copied->setText(selText(this));
    return copied;
}
