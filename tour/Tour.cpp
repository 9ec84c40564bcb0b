#include "Tour.h"

#include "controls/editor/EditorControl.h"

#include <QAction>
#include <QApplication>
#include <QDialog>
#include <QEventLoop>
#include <QLabel>
#include <QTabWidget>
#include <QTimer>
#include <QToolBar>

#include <cstdio>

using namespace Qt::StringLiterals;

namespace {

/// The dialog that comes up. That it is the active window cannot be counted on: it takes a window
/// manager.
QDialog *shownDialog()
{
    for (int tries = 0; tries < 50; ++tries) {
        for (QWidget *window : QApplication::topLevelWidgets()) {
            auto *dialog = qobject_cast<QDialog *>(window);
            if (dialog != nullptr && dialog->isVisible())
                return dialog;
        }
        settle();
    }
    qFatal("No dialog comes up.");
}

} // namespace

void settle(int milliseconds)
{
    QEventLoop loop;
    QTimer::singleShot(milliseconds, &loop, &QEventLoop::quit);
    loop.exec();
}

void Tour::picture(const QString &name, QWidget *window)
{
    settle();
    const QString file = u"%1-%2.png"_s.arg(++m_step, 2, 10, QChar(u'0')).arg(name);
    if (!(window != nullptr ? window : &frame)->grab().save(m_pictures.filePath(file)))
        qFatal("%s cannot be written", qPrintable(m_pictures.filePath(file)));
    QStringList shown;
    for (int panel = 1; panel <= 5; ++panel) {
        if (const auto *label = frame.findChild<QLabel *>(u"sbSql_%1"_s.arg(panel)))
            shown += u'[' + label->text() + u']';
    }
    std::printf("%s %s\n", qPrintable(file), qPrintable(shown.join(u' ')));
    std::fflush(stdout);
}

void Tour::dialog(const QString &name, const std::function<void()> &start,
                  const std::function<void(QWidget *)> &use)
{
    text().setFocus(); // some dialogs are the editor's alone
    QTimer::singleShot(200, &frame, [&] {
        QDialog *const window = shownDialog();
        if (use)
            use(window);
        picture(name, window);
        QTimer::singleShot(200, &frame, [] { // cancelling may have been told of
            if (QWidget *const message = QApplication::activeModalWidget())
                message->close();
        });
        window->close();
    });
    start();
    settle(500);
    QApplication::setActiveWindow(&frame); // no window manager does it on a bare screen
    settle();
}

void Tour::press(const QString &toolBar, int button)
{
    control<QToolBar>(toolBar).actions().at(button - 1)->trigger();
}

void Tour::choose(const QString &menuItem)
{
    control<QAction>(menuItem).trigger();
}

void Tour::run(const QString &statement, int tab)
{
    control<QTabWidget>(u"tbSql"_s).setCurrentIndex(tab);
    text().setText(statement);
    press(u"tbrQuerna"_s, 1);
}

EditorControl &Tour::text()
{
    return control<EditorControl>(u"txtSQL"_s);
}
