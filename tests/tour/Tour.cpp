#include "Tour.h"

#include "app/MDIFormQuerna.h"
#include "controls/EditorControl.h"
#include "editor/frmQuerna.h"

#include <QAction>
#include <QApplication>
#include <QMessageBox>
#include <QTabWidget>
#include <QTest>
#include <QTimer>

#include <cstdio>

using namespace Qt::StringLiterals;

namespace {

constexpr int modalPollInterval = 20;

void say(const QString &line)
{
    std::printf("%s\n", qPrintable(line));
    std::fflush(stdout);
}

} // namespace

void settle(int milliseconds)
{
    QTest::qWait(milliseconds);
}

Tour::Tour(const QString &pictureFolder)
    : m_pictures(pictureFolder)
{
    m_pictures.mkpath(u"."_s);
    // What an earlier tour has left.
    for (const QString &old : m_pictures.entryList(QDir::Files))
        m_pictures.remove(old);
    for (const QString &file : {u"T-SQL.bcp"_s, u"dummy.sql"_s})
        QFile::copy(QApplication::applicationDirPath() + u"/../app/"_s + file,
                    folder() + u'/' + file);
}

void Tour::picture(const QString &name, QWidget *window)
{
    settle();
    ++m_step;
    const QString file = u"%1-%2.png"_s.arg(m_step, 2, 10, QChar(u'0')).arg(name);
    if (window == nullptr)
        window = &frame();
    expect(window->grab().save(picturePath(file)), u"the picture %1 is saved"_s.arg(file));
    QString line = u"%1: window \"%2\""_s.arg(file, window->windowTitle().simplified());
    if (editor() != nullptr) {
        line += u"; caption \"%1\"; panels"_s.arg(editor()->windowTitle().simplified());
        for (int i = 1; i <= 5; ++i)
            line += u" [%1]"_s.arg(panel(i));
        line += u"; %1 rows in the grid"_s.arg(rows());
    }
    say(line);
}

void Tour::expect(bool holds, const QString &what)
{
    if (holds)
        return;
    ++m_faults;
    say(u"  FAULT: expected that "_s + what);
}

void Tour::run(const QString &statement)
{
    text()->setText({});
    text()->setFocus();
    QTest::keyClicks(text(), statement);
    press(u"tbrQuerna"_s, 1);
    settle();
}

void Tour::showTab(int index)
{
    control<QTabWidget>(u"tbSql"_s)->setCurrentIndex(index);
    settle();
}

void Tour::modal(const std::function<void()> &start, const std::function<void(QWidget *)> &visit)
{
    visitModal(start, visit, false);
}

QString Tour::message(const std::function<void()> &start, const QString &pictureName)
{
    QString text;
    const auto accept = [&](QWidget *box) {
        text = qobject_cast<QMessageBox *>(box)->text();
        if (!pictureName.isEmpty())
            picture(pictureName, box);
        QTest::keyClick(box, Qt::Key_Return);
    };
    visitModal(start, accept, true);
    return text;
}

void Tour::visitModal(const std::function<void()> &start,
                      const std::function<void(QWidget *)> &visit, bool isMessage)
{
    bool visited = false;
    QTimer timer;
    QObject::connect(&timer, &QTimer::timeout, &timer, [&] {
        QWidget *window = QApplication::activeModalWidget();
        if (window == nullptr || !window->isVisible() ||
            (qobject_cast<QMessageBox *>(window) != nullptr) != isMessage)
            return;
        timer.stop();
        visited = true;
        settle();
        visit(window);
    });
    timer.start(modalPollInterval);
    start();
    expect(visited, isMessage ? u"a message is shown"_s : u"a dialog comes up"_s);
    // No window manager does it on a bare screen.
    frame().activateWindow();
    text()->setFocus();
    settle();
}

void Tour::noteCommandsUsed()
{
    for (const QString &holder : {u"mnuFile"_s, u"mnuEdit"_s, u"mnuConnection"_s,
                                  u"mnuorbekusergroup"_s, u"tbrQuerna"_s, u"Toolbar1"_s}) {
        for (const QAction *action : control<QWidget>(holder)->actions()) {
            if (action->isSeparator())
                continue;
            m_unusedCommands += action->objectName();
            QObject::connect(action, &QAction::triggered, editor(),
                             [this, action] { m_unusedCommands.removeAll(action->objectName()); });
        }
    }
}

void Tour::expectEveryCommandUsed()
{
    expect(m_unusedCommands.isEmpty(),
           u"the tour has used %1"_s.arg(m_unusedCommands.join(u", "_s)));
}
