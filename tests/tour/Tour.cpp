#include "Tour.h"

#include "controls/DataGrid.h"
#include "controls/EditorControl.h"
#include "editor/frmQuerna.h"

#include <QAbstractButton>
#include <QAction>
#include <QApplication>
#include <QLabel>
#include <QMessageBox>
#include <QTest>
#include <QTimer>
#include <QToolBar>

#include <cstdio>
#include <cstdlib>

using namespace Qt::StringLiterals;

namespace {

constexpr int modalPollInterval = 20;

template <typename Object>
Object *findAnywhere(const QString &name)
{
    for (QWidget *window : QApplication::topLevelWidgets()) {
        if (window->objectName() == name) {
            if (auto *found = qobject_cast<Object *>(window))
                return found;
        }
        if (auto *found = window->findChild<Object *>(name))
            return found;
    }
    return nullptr;
}

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

QWidget *control(const QString &name)
{
    auto *found = findAnywhere<QWidget>(name);
    if (found == nullptr) {
        say(u"There is no control named %1: the tour ends here."_s.arg(name));
        std::exit(1);
    }
    return found;
}

void clickOption(const QString &name)
{
    QWidget *option = control(name);
    QTest::mouseClick(option, Qt::LeftButton, {}, QPoint(8, option->height() / 2));
}

Tour::Tour(const QString &pictureFolder)
    : m_folder(pictureFolder)
{
    m_folder.mkpath(u"."_s);
    // What an earlier tour has left.
    for (const QString &old : m_folder.entryList(QDir::Files))
        m_folder.remove(old);
}

void Tour::picture(const QString &name, QWidget *window)
{
    settle();
    ++m_step;
    const QString file = u"%1-%2.png"_s.arg(m_step, 2, 10, QChar(u'0')).arg(name);
    expect(window->grab().save(m_folder.filePath(file)), u"the picture %1 is saved"_s.arg(file));
    QString line = u"%1: window \"%2\""_s.arg(file, window->windowTitle().simplified());
    if (editor() != nullptr) {
        line += u"; caption \"%1\"; panels"_s.arg(editor()->windowTitle().simplified());
        for (int i = 1; i <= 5; ++i)
            line += u" [%1]"_s.arg(panel(i));
        line += u"; %1 rows in the grid"_s.arg(gridRows());
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

void Tour::press(const QString &toolBar, int index)
{
    auto *bar = control<QToolBar>(toolBar);
    QAction *action = bar->actions().value(index - 1);
    QWidget *button = action == nullptr ? nullptr : bar->widgetForAction(action);
    expect(button != nullptr && button->isEnabled(),
           u"button %1 of %2 can be pressed"_s.arg(index).arg(toolBar));
    if (button != nullptr)
        QTest::mouseClick(button, Qt::LeftButton);
}

void Tour::type(const QString &text)
{
    QTest::keyClicks(this->text(), text);
}

void Tour::run(const QString &text)
{
    this->text()->setText({});
    this->text()->setFocus();
    type(text);
    press(u"tbrQuerna"_s, 1);
    settle();
}

void Tour::menu(const QString &name)
{
    auto *action = findAnywhere<QAction>(name);
    expect(action != nullptr && action->isEnabled(), u"menu item %1 can be picked"_s.arg(name));
    if (action != nullptr)
        action->trigger();
}

void Tour::modal(const std::function<void()> &start, const std::function<void(QWidget *)> &visit)
{
    visitModal(start, visit, false);
}

QString Tour::message(const std::function<void()> &start, const QString &button,
                      const QString &pictureName)
{
    QString text;
    const auto answer = [&](QWidget *window) {
        auto *box = qobject_cast<QMessageBox *>(window);
        text = box->text();
        if (!pictureName.isEmpty())
            picture(pictureName, box);
        for (QAbstractButton *candidate : box->buttons()) {
            if (candidate->text().remove(u'&') == button)
                return QTest::mouseClick(candidate, Qt::LeftButton);
        }
        box->close();
    };
    visitModal(start, answer, true);
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
    if (editor() != nullptr) {
        editor()->window()->activateWindow();
        settle();
    }
}

void Tour::noteCommandsUsed()
{
    for (const QString &holder : {u"mnuFile"_s, u"mnuEdit"_s, u"mnuConnection"_s,
                                  u"mnuorbekusergroup"_s, u"tbrQuerna"_s, u"Toolbar1"_s}) {
        for (const QAction *action : control(holder)->actions()) {
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

frmQuerna *Tour::editor() const
{
    return findAnywhere<frmQuerna>(u"frmQuerna"_s);
}

EditorControl *Tour::text() const
{
    return control<EditorControl>(u"txtSQL"_s);
}

DataGrid *Tour::grid() const
{
    return control<DataGrid>(u"SqlDataGrid"_s);
}

QString Tour::panel(int number) const
{
    return control<QLabel>(u"sbSql_%1"_s.arg(number))->text();
}

int Tour::gridRows() const
{
    return grid()->model()->rowCount();
}
