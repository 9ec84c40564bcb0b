#include "controls/forms/icons.h"

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

void addButtons(QToolBar &bar, const QList<ToolBarButton> &buttons,
                const std::function<void(int)> &pressed)
{
    auto *tips = new KeyTips(&bar);
    int index = 0;
    for (const ToolBarButton &button : buttons) {
        ++index;
        const QString toolTip = button.toolTip;
        QAction *action = toolTip.isEmpty() ? bar.addSeparator()
                                            : bar.addAction(themedIcon(button.icon), toolTip);
        action->setObjectName(u"%1_%2"_s.arg(bar.objectName()).arg(index));
        if (toolTip.isEmpty())
            continue;
        action->setToolTip(toolTip);
        action->setShortcuts(button.shortcuts);
        action->setData(button.menuKey);
        bar.widgetForAction(action)->installEventFilter(tips);
        QObject::connect(action, &QAction::triggered, &bar, [pressed, index] { pressed(index); });
    }
}
