#pragma once

#include <QKeyEvent>
#include <QKeySequence>
#include <QShortcut>
#include <QString>
#include <QWidget>

/// What forms do with their controls: names, keys that lead to them, keys pressed in them.

/// Gives a control the name that the program and its tests know it by.
template <typename Control>
Control *named(Control *control, const QString &name)
{
    control->setObjectName(name);
    return control;
}

// Access keys, for captions that are shown, and read by other programs, without a mark in them.

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

/// Whether an event is Enter going down, on either part of the keyboard.
inline bool isEnterPress(const QEvent &event)
{
    if (event.type() != QEvent::KeyPress)
        return false;
    const int key = static_cast<const QKeyEvent &>(event).key();
    return key == Qt::Key_Return || key == Qt::Key_Enter;
}
