#pragma once

#include <QString>

/// Message boxes. Each lies over the window that is in use and waits for its answer.

/// Leads showMessage() to a box with an OK button and the program's title.
void showMessagesInWindows();

/// Sounds the desktop's alert and shows an information with an OK button.
void inform(const QString &text, const QString &title);

/// Asks for Yes or No; closing the box is No.
bool confirmed(const QString &question);
