#pragma once

#include <QString>

#include <functional>

/// Icon of a message box; the values are those of the Win32 MessageBox function's icon codes.
enum class MessageIcon { None = 0, Question = 32, Information = 64 };

enum class MessageButtons { Ok = 0, YesNo = 4 };

enum class MessageAnswer { Ok = 1, Yes = 6, No = 7 };

/// The title of every message box that names no other.
QString defaultMessageTitle();

struct Message
{
    QString text;
    MessageButtons buttons = MessageButtons::Ok;
    MessageIcon icon = MessageIcon::None;
    QString title = defaultMessageTitle();
};

/// Shows a message and waits for the answer. Closing the box answers Ok, or No where there is a
/// choice.
MessageAnswer showMessage(const Message &message);

/// Shows a text alone, with an OK button and the default title.
void showMessage(const QString &text);

/// Sounds the desktop's alert.
void beep();

/// What shows messages and sounds the alert. The program installs its windows here; without them a
/// message goes to the standard error stream and is answered Ok or No.
struct MessagePresenter
{
    std::function<MessageAnswer(const Message &)> show;
    std::function<void()> beep;
};
void setMessagePresenter(MessagePresenter presenter);
