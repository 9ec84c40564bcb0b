#include "Tour.h"

#include "app/FrameCommands.h"
#include "app/MDIFormQuerna.h"
#include "connection/session.h"
#include "controls/EditorControl.h"
#include "editor/frmQuerna.h"
#include "platform/applicationFolder.h"
#include "platform/process.h"

#include <QApplication>
#include <QClipboard>
#include <QFile>
#include <QFontDialog>
#include <QMenu>
#include <QTest>

using namespace Qt::StringLiterals;

namespace {

/// Puts a program at @p path that writes its first argument to a file, whose path is returned.
QString writeStandIn(const QString &path)
{
    const QString told = path + u".told"_s;
    QFile program(path);
    if (program.open(QIODevice::WriteOnly)) {
        program.write("#!/bin/sh\nprintf %s \"$1\" > '" + QFile::encodeName(told) + ".new'\nmv '" +
                      QFile::encodeName(told) + ".new' '" + QFile::encodeName(told) + "'\n");
        program.setPermissions(QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    }
    return told;
}

/// What a stand-in has been started with; empty when it was not, within five seconds.
QString toldTo(const QString &path)
{
    if (!QTest::qWaitFor([&path] { return QFile::exists(path); }, 5000))
        return {};
    QFile file(path);
    const QString text = file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()) : u""_s;
    QFile::remove(path);
    return text;
}

void openMenu(Tour &tour, const QString &name)
{
    auto *menu = control<QMenu>(name);
    menu->popup(control(u"MDIFormQuerna"_s)->mapToGlobal(QPoint(0, 40)));
    tour.picture(name, menu);
    menu->close();
    tour.editor()->window()->activateWindow();
    tour.text()->setFocus();
    settle();
}

} // namespace

void tourEditMenu(Tour &tour)
{
    openMenu(tour, u"mnuEdit"_s);
    EditorControl *text = tour.text();
    const auto shows = [&](const QString &item, const QString &expected) {
        tour.menu(item);
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

void tourFontCommand(Tour &tour)
{
    // No menu offers it.
    FrameCommands commands(*control<MDIFormQuerna>(u"MDIFormQuerna"_s));
    EditorControl *text = tour.text();
    text->setText(u"select 'in another font' from dual"_s);
    text->setSelStart(7);
    text->setSelLength(17);
    tour.modal([&] { commands.mnuFont_Click(); },
               [&](QWidget *dialog) {
                   auto *fonts = dialog->findChild<QFontDialog *>();
                   fonts->setCurrentFont(QFont(u"DejaVu Sans Mono"_s, 18, QFont::Bold));
                   tour.picture(u"font"_s, dialog);
                   QTest::keyClick(fonts, Qt::Key_Return);
               });
    tour.picture(u"in-another-font"_s, control(u"MDIFormQuerna"_s));
    tour.expect(text->Font().family() == u"DejaVu Sans Mono"_s, u"the font is taken"_s);
}

void tourOtherPrograms(Tour &tour)
{
    openMenu(tour, u"mnuFile"_s);
    const QString started = writeStandIn(applicationFile(u"Querna"_s));
    tour.menu(u"mnuOrbekSqlEditor"_s);
    tour.expect(toldTo(started) == gConnectString, u"New Window hands on the connection"_s);

    const QString opened = writeStandIn(applicationFile(u"xdg-open"_s));
    const QByteArray path = qgetenv("PATH");
    qputenv("PATH", QFile::encodeName(applicationFolder()) + ':' + path);
    for (const QString &item : {u"mnuJoinOrbekUserGroup"_s, u"mnuMessageOrbekUserGroup"_s}) {
        tour.menu(item);
        tour.expect(toldTo(opened).startsWith(u"https://"_s), u"%1 opens a page"_s.arg(item));
    }
    qputenv("PATH", path);
}

void tourExit(Tour &tour)
{
    int ends = 0;
    setProgramEnd([&ends](int) { ++ends; });
    tour.press(u"tbrQuerna"_s, 20);
    tour.expect(ends == 1, u"Exit Sql Editor ends the program"_s);
    tour.menu(u"mnuExit"_s);
    tour.expect(ends == 2, u"Exit ends the program"_s);
    setProgramEnd({});
}
