#pragma once

#include <QColor>
#include <QFont>
#include <QString>

#include <optional>

class QDialog;
class QFileDialog;
class QWidget;

/// The common dialogs for files, colours and fonts, with the properties that the classic control
/// has. A cancelled dialog raises RuntimeError 32755 when CancelError is set; otherwise FileName is
/// left empty, or the colour and font as they were.
class CommonDialog
{
public:
    explicit CommonDialog(QWidget *parent)
        : m_parent(parent)
    {
    }

    bool CancelError = false;
    QString FileName;
    QString InitDir;
    QString DialogTitle;
    /// Pairs of a name and a pattern separated by `|`: "All Files (*.*)|*.*".
    QString Filter;
    /// Extension given to a name typed without one.
    QString DefaultExt;
    QColor Color;
    QFont Font;

    void ShowOpen();
    /// Asks for a file to save to; an existing one is taken without a question.
    void ShowSave();
    void ShowColor();
    /// Asks for a font with its effects. Color stays invalid unless one is chosen.
    void ShowFont();

private:
    bool run(QDialog &dialog, const QString &objectName) const;
    bool isAccepted(bool accepted) const;
    void runFileDialog(QFileDialog &dialog, const QString &objectName);

    QWidget *m_parent;
};

/// Gives those parts of one of the toolkit's own dialogs a name that screen readers would otherwise
/// find nameless: the lists that combo boxes drop down, pages, and what stands below a heading.
/// To be called before the dialog is shown.
void nameParts(QDialog &dialog);

/// Asks for a colour in a dialog that the system has and the toolkit does not use.
/// @returns whether one was chosen, which then is @p colour; nothing when there is no such dialog
std::optional<bool> askSystemForColour(const QWidget *parent, QColor &colour);

/// Message boxes. Each lies over the window that is in use and waits for its answer.

/// Leads showMessage() to a box with an OK button and the program's title.
void showMessagesInWindows();

/// Sounds the desktop's alert and shows an information with an OK button.
void inform(const QString &text, const QString &title);

/// Asks for Yes or No; closing the box is No.
bool confirmed(const QString &question);
