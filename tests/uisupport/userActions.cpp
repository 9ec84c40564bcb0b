#include "uisupport/userActions.h"

#include "uisupport/ModalAnswers.h"
#include "uisupport/ProgramFixture.h"

#include <QAbstractButton>
#include <QLineEdit>
#include <QTest>

using namespace Qt::StringLiterals;

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
