#pragma once

#include <QKeySequence>
#include <QShortcut>
#include <QString>
#include <QWidget>

/// Access keys for captions that are shown, and read by other programs, without a mark in them.

/// Alt and @p key press @p button. @returns the button
template <typename Button>
Button *withAccessKey(Button *button, Qt::Key key)
{
    button->setShortcut(QKeySequence(Qt::ALT | key));
    return button;
}

/// Alt and @p key lead to @p field, one of the controls of @p window.
inline void setAccessKey(QWidget *field, Qt::Key key, QWidget *window)
{
    auto *shortcut = new QShortcut(QKeySequence(Qt::ALT | key), window);
    QObject::connect(shortcut, &QShortcut::activated, field,
                     [field] { field->setFocus(Qt::ShortcutFocusReason); });
}

/// A caption as it is read out.
inline QString withoutMnemonic(QString caption)
{
    return caption.remove(u'&');
}
