#pragma once

#include "app/MDIFormQuerna.h"

#include <QDir>

#include <functional>

class EditorControl;

/// The program on a tour: its frame, and the pictures that are taken of it.
class Tour
{
public:
    /// @param pictures  an empty folder
    explicit Tour(const QDir &pictures)
        : m_pictures(pictures)
    {
    }

    /// Takes a picture of @p window, by default the frame, and prints what the status panels say.
    void picture(const QString &name, QWidget *window = nullptr);
    /// The same of the dialog or message that @p start opens, when @p use has been done to it; then
    /// the dialog is closed.
    void dialog(const QString &name, const std::function<void()> &start,
                const std::function<void(QWidget *)> &use = {});

    /// A toolbar's button, counted from 1.
    void press(const QString &toolBar, int button);
    void choose(const QString &menuItem);
    /// Shows a result tab and runs @p statement there.
    void run(const QString &statement, int tab = 0);

    EditorControl &text();
    template <typename Control>
    Control &control(const QString &name)
    {
        return *frame.findChild<Control *>(name);
    }

    MDIFormQuerna frame;

private:
    QDir m_pictures;
    int m_step = 0;
};

/// Lets windows be shown and painted.
void settle(int milliseconds = 100);
