#include "uisupport/accessibleNames.h"

#include <QAccessible>
#include <QWidget>

using namespace Qt::StringLiterals;

namespace {

/// What a view's rows are read by is their contents, empty ones among them.
bool isContents(QAccessible::Role role)
{
    return role == QAccessible::Cell || role == QAccessible::ListItem ||
           role == QAccessible::TreeItem;
}

void gather(QAccessibleInterface &control, QStringList &nameless)
{
    if (isContents(control.role()))
        return;
    if (control.state().focusable && control.text(QAccessible::Name).isEmpty()) {
        const QObject *object = control.object();
        nameless += object == nullptr
                        ? u"role %1"_s.arg(control.role())
                        : u"%1 \"%2\""_s.arg(QString::fromLatin1(object->metaObject()->className()),
                                             object->objectName());
    }
    for (int i = 0; i < control.childCount(); ++i) {
        if (QAccessibleInterface *child = control.child(i))
            gather(*child, nameless);
    }
}

} // namespace

QStringList namelessControls(QWidget &window)
{
    QStringList nameless;
    // On Windows users get the system's file dialog, and never this one.
    if (QSysInfo::kernelType() == "winnt"_L1 && window.inherits("QFileDialog"))
        return nameless;
    gather(*QAccessible::queryAccessibleInterface(&window), nameless);
    return nameless;
}
