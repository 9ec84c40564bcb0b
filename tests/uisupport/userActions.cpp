#include "uisupport/userActions.h"

#include "uisupport/ModalAnswers.h"
#include "uisupport/ProgramFixture.h"

#include <QAbstractButton>
#include <QAccessible>
#include <QLineEdit>
#include <QTest>

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

void click(const QWidget &window, const QString &button)
{
    auto *found = window.findChild<QAbstractButton *>(button);
    QTest::mouseClick(found, Qt::LeftButton, {}, QPoint(8, found->height() / 2));
}

void enter(const QWidget &window, const QString &lineEdit, const QString &text)
{
    auto *found = window.findChild<QLineEdit *>(lineEdit);
    found->clear();
    QTest::keyClicks(found, text);
}

void exportRows(ProgramFixture &program, int option, const QString &path)
{
    whenModal([=](QWidget *dialog) {
        click(*dialog, u"optExport_%1"_s.arg(option));
        if (!path.isEmpty())
            answerFileDialog(path);
        click(*dialog, u"cmdExpOK"_s);
    });
    program.press(u"tbrQuerna"_s, 3);
}

QStringList namelessControls(QWidget &window)
{
    QStringList nameless;
    // On Windows users get the system's file dialog, and never this one.
    if (QSysInfo::kernelType() == "winnt"_L1 && window.inherits("QFileDialog"))
        return nameless;
    gather(*QAccessible::queryAccessibleInterface(&window), nameless);
    return nameless;
}
