#include "Tour.h"

#include "app/MDIFormQuerna.h"
#include "connection/session.h"
#include "controls/EditorControl.h"
#include "support/testFiles.h"

#include <QAction>
#include <QApplication>
#include <QClipboard>
#include <QFile>
#include <QMenu>
#include <QTest>

using namespace Qt::StringLiterals;

namespace {

/// Puts a program into the application folder that writes its first argument to a file.
/// @returns that file's path
QString makeStandIn(const Tour &tour, const QString &name)
{
    const QString path = tour.folder() + u'/' + name;
    makeFile(path, "#!/bin/sh\nprintf %s \"$1\" > \"$0.new\"\nmv \"$0.new\" \"$0.told\"\n");
    QFile::setPermissions(path, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    return path + u".told"_s;
}

/// What a stand-in has been started with; "(not there)" when it was not, within five seconds.
QString toldTo(const QString &path)
{
    (void)QTest::qWaitFor([&path] { return QFile::exists(path); }, 5000);
    const QByteArray told = contentOf(path);
    QFile::remove(path);
    return QString::fromUtf8(told);
}

void openMenu(Tour &tour, const QString &name)
{
    auto *menu = tour.control<QMenu>(name);
    menu->popup(tour.frame().mapToGlobal(QPoint(0, 40)));
    tour.picture(name, menu);
    menu->close();
    tour.frame().activateWindow();
    tour.text()->setFocus();
    settle();
}

} // namespace

void tourEditMenu(Tour &tour)
{
    openMenu(tour, u"mnuEdit"_s);
    EditorControl *text = tour.text();
    const auto shows = [&](const QString &item, const QString &expected) {
        tour.menuItem(item)->trigger();
        tour.expect(text->Text() == expected, u"%1 leaves \"%2\""_s.arg(item, expected));
    };
    text->setText(u"select one two"_s);
    text->setSelStart(7);
    text->setSelLength(4);
    shows(u"mnuSelectAll"_s, u"select one two"_s);
    tour.expect(text->SelText() == u"one "_s, u"Select All leaves the selection alone"_s);
    shows(u"mnuCopy"_s, u"select one two"_s);
    tour.expect(QApplication::clipboard()->text() == u"one "_s, u"Copy fills the clipboard"_s);
    shows(u"mnuCut"_s, u"select two"_s);
    shows(u"mnuPaste"_s, u"select one two"_s);
    shows(u"mnuUndo"_s, u"select two"_s);
    shows(u"mnuRedo"_s, u"select one two"_s);
    text->setSelStart(6);
    text->setSelLength(4);
    shows(u"mnuDelete"_s, u"select two"_s);
}

void tourOtherPrograms(Tour &tour)
{
    openMenu(tour, u"mnuFile"_s);
    const QString started = makeStandIn(tour, u"Querna"_s);
    tour.menuItem(u"mnuOrbekSqlEditor"_s)->trigger();
    tour.expect(toldTo(started) == gConnectString, u"New Window hands on the connection"_s);

    const QString opened = makeStandIn(tour, u"xdg-open"_s);
    const QByteArray path = qgetenv("PATH");
    qputenv("PATH", QFile::encodeName(tour.folder()) + ':' + path);
    for (const QString &item : {u"mnuJoinOrbekUserGroup"_s, u"mnuMessageOrbekUserGroup"_s}) {
        tour.menuItem(item)->trigger();
        tour.expect(toldTo(opened).startsWith(u"https://"_s), u"%1 opens a page"_s.arg(item));
    }
    qputenv("PATH", path);
}

void tourExit(Tour &tour)
{
    tour.expect(tour.ends.empty(), u"the program does not end by itself"_s);
    tour.press(u"tbrQuerna"_s, 20);
    tour.menuItem(u"mnuExit"_s)->trigger();
    tour.expect(tour.ends == std::vector{0, 0}, u"both ways of leaving end the program"_s);
}
