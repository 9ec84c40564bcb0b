#pragma once

#include "controls/editor/EditorTarget.h"

#include <QDialog>
#include <QTimer>

class QLineEdit;

/// Searches and replaces in the text of one editor control, which setTxt() names before the dialog
/// is used. Searching always minds the letter case, whatever the check box says.
///
/// Replace All goes on until no occurrence is left, and for ever where each replacement brings a
/// new one. The program stays usable meanwhile; only its end, or that of the editor or of this
/// dialog, ends it earlier.
class frmFind : public QDialog
{
    Q_OBJECT
public:
    explicit frmFind(QWidget *parent = nullptr);

    /// @throws RuntimeError 91 without a control
    void setTxt(EditorControl *ctl, QWidget *frm);
    /// The name of the control.
    QString controlName() const { return m_controlName; }

    void setVisible(bool visible) override;

private slots:
    void cmdFindFirst_Click();
    void cmdFindNext_Click();
    void cmdReplace_Click();
    void cmdReplaceAll_Click();
    void cmdFindCancel_Click();

private:
    QWidget *buildFields();
    QWidget *buildButtons();

    void findFrom(qsizetype start, const QString &messageWhenMissing);
    void findNext();
    void takeText();
    void replaceSome();
    void showText();
    void setReplacing(bool on);

    QLineEdit *txtFind = nullptr;
    QLineEdit *txtReplace = nullptr;
    /// What is not at hand while Replace All is under way: everything but Cancel.
    QList<QWidget *> m_searching;

    EditorTarget m_target;
    QString m_controlName;

    // Replace All, portion by portion
    QTimer m_nextPortion;    ///< runs while something is under way
    QString m_shown;         ///< what the replacing went out from, or has given the editor since
    QString m_done;          ///< the text's beginning, which holds no occurrence
    QString m_rest;          ///< what follows on it, backwards
    qsizetype m_allowed = 0; ///< replacements before the next pause
};
