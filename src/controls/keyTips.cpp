#include "controls/keyTips.h"

#include <QAction>
#include <QHelpEvent>
#include <QToolBar>
#include <QToolButton>
#include <QToolTip>

using namespace Qt::StringLiterals;

namespace {

QString tipWithKey(const QAction &action)
{
    QKeySequence key = action.shortcut();
    if (key.isEmpty())
        key = action.data().value<QKeySequence>();
    if (key.isEmpty())
        return action.toolTip();
    return u"%1 (%2)"_s.arg(action.toolTip(), key.toString(QKeySequence::NativeText));
}

class KeyTips : public QObject
{
public:
    using QObject::QObject;

protected:
    bool eventFilter(QObject *watched, QEvent *event) override
    {
        if (event->type() != QEvent::ToolTip)
            return false;
        auto *button = static_cast<QToolButton *>(watched);
        QToolTip::showText(static_cast<QHelpEvent *>(event)->globalPos(),
                           tipWithKey(*button->defaultAction()), button);
        return true;
    }
};

} // namespace

void showKeysInToolTips(QToolBar &bar)
{
    auto *tips = new KeyTips(&bar);
    for (QAction *action : bar.actions()) {
        if (auto *button = qobject_cast<QToolButton *>(bar.widgetForAction(action)))
            button->installEventFilter(tips);
    }
}
