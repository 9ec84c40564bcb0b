#include "controls/forms/CommonDialog.h"

#include "controls/forms/WaitingLoop.h"
#include "platform/errorTraps.h"

#include <QApplication>
#include <QGridLayout>
#include <QGuiApplication>
#include <QLabel>
#include <QMainWindow>
#include <QMessageBox>
#include <QPlainTextEdit>
#include <QScreen>
#include <QStyle>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

/// A text that would take a good part of the screen, or that cannot be broken into lines, is shown
/// in a field that scrolls.
void showLongTextScrolling(QMessageBox &box)
{
    const QSize screen = box.screen()->availableGeometry().size();
    const QSize room(std::min(screen.width() - 100, 700), screen.height() / 2);
    const QRect needed = box.fontMetrics().boundingRect(QRect(QPoint(), QSize(room.width(), 1)),
                                                        Qt::TextWordWrap, box.text());
    auto *label = box.findChild<QLabel *>(u"qt_msgbox_label"_s);
    auto *layout = qobject_cast<QGridLayout *>(box.layout());
    const bool fits = needed.height() <= room.height() && needed.width() <= room.width();
    if (fits || !label || !layout)
        return;
    auto *field = new QPlainTextEdit(box.text(), &box);
    field->setObjectName(u"messageText"_s);
    field->setAccessibleName(QObject::tr("Message"));
    field->setReadOnly(true);
    field->setMinimumSize(room);
    delete layout->replaceWidget(label, field);
    label->hide();
}

/// Has a short text leave room for the title, and for what the frame shows beside it.
void makeRoomForTitle(QMessageBox &box)
{
    const int beside = 5 * box.style()->pixelMetric(QStyle::PM_TitleBarHeight);
    const int title = box.fontMetrics().horizontalAdvance(box.windowTitle());
    if (auto *layout = qobject_cast<QGridLayout *>(box.layout()))
        layout->setColumnMinimumWidth(layout->columnCount() - 1, title + beside);
}

/// The window that a message belongs to. Just after a dialog has closed, and while another program
/// is in front, none is the active one.
QWidget *windowInUse()
{
    for (QWidget *window : {QApplication::activeModalWidget(), QApplication::activeWindow()}) {
        if (window != nullptr)
            return window;
    }
    const QWidgetList windows = QApplication::topLevelWidgets();
    const auto found = std::find_if(windows.begin(), windows.end(), [](const QWidget *window) {
        return window->isVisible() && window->parentWidget() == nullptr &&
               qobject_cast<const QMainWindow *>(window);
    });
    return found == windows.end() ? nullptr : *found;
}

/// @returns the button pressed
int showBox(QMessageBox::Icon icon, const QString &text, QMessageBox::StandardButtons buttons,
            const QString &title = u"Orbek SQL Editor"_s)
{
    QMessageBox box(windowInUse());
    box.setObjectName(u"messageBox"_s);
    box.setWindowTitle(title);
    box.setTextFormat(Qt::PlainText);
    box.setText(text);
    box.setIcon(icon);
    box.setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    box.setStandardButtons(buttons);
    if (buttons.testFlag(QMessageBox::No))
        box.setEscapeButton(QMessageBox::No);
    showLongTextScrolling(box);
    makeRoomForTitle(box);
    // While it waits for the user, the program does not look busy.
    const bool looksBusy = QGuiApplication::overrideCursor() != nullptr;
    if (looksBusy)
        QGuiApplication::setOverrideCursor(Qt::ArrowCursor);
    const int pressed = box.exec();
    if (looksBusy)
        QGuiApplication::restoreOverrideCursor();
    return pressed;
}

} // namespace

void showMessagesInWindows()
{
    setMessagePresenter([](const QString &text) {
        if (!WaitingLoop::isClosing())
            showBox(QMessageBox::NoIcon, text, QMessageBox::Ok);
    });
}

void inform(const QString &text, const QString &title)
{
    QApplication::beep();
    showBox(QMessageBox::Information, text, QMessageBox::Ok, title);
}

bool confirmed(const QString &question)
{
    return showBox(QMessageBox::Question, question, QMessageBox::Yes | QMessageBox::No) ==
           QMessageBox::Yes;
}
