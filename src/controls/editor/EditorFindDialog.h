#pragma once

#include <QDialog>
#include <QRegularExpression>

#include <utility>

class EditorControl;
class QCheckBox;
class QFormLayout;
class QLabel;
class QLineEdit;
class QPushButton;

/// The editor control's own dialog to find and to replace. It stays open beside the text.
class EditorFindDialog : public QDialog
{
    Q_OBJECT
public:
    explicit EditorFindDialog(EditorControl &editor);

    /// Shows the dialog, to find only or to replace as well; a selection within one line is what it
    /// offers to look for.
    void showFor(bool replacing);

    /// Finds what was looked for last. Where the dialog is closed its note stands beside the caret;
    /// it opens when there is nothing to look for yet.
    void findAgain(bool forward);
    static constexpr std::pair<QKeyCombination, bool> keysToFindAgain[] = {
        {Qt::Key_F3, true}, {Qt::SHIFT | Qt::Key_F3, false}};

private:
    QLayout *buildFields();
    QLayout *buildButtons();
    void updateButtons();

    QRegularExpression wanted() const;
    /// Selects the next occurrence after the selection, or the last one before it; goes on at the
    /// text's other end when there is none.
    void find(bool forward);
    /// Replaces the selection if it is an occurrence, then finds the next one.
    void replaceOne();
    /// Replaces every occurrence, in one step for undo and in time linear in the text.
    void replaceAll();

    EditorControl &m_editor;
    QFormLayout *m_fields;
    QLineEdit *txtSearch;
    QLineEdit *txtReplacement;
    QCheckBox *chkMatchCase;
    QCheckBox *chkWholeWord;
    QLabel *lblNote;
    QList<QPushButton *> m_finding;
    QList<QPushButton *> m_replacing;
};
