#pragma once

#include "controls/EditorSearch.h"

#include <QDialog>

class QCheckBox;
class QGridLayout;
class QLabel;
class QLineEdit;
class QPushButton;
class QVBoxLayout;

/// The editor control's own find dialog. It stays open beside the text.
class EditorFindDialog : public QDialog
{
    Q_OBJECT
public:
    explicit EditorFindDialog(EditorSearch &search, QWidget *parent = nullptr);

    /// Shows the dialog; a selection within one line is what it offers to look for.
    void showFor(const QString &selection);

protected:
    SearchText wanted() const;
    void showNote(const QString &note);
    void showResult(EditorSearch::Result result);
    QPushButton *addButton(const QString &name, const QString &text);

    /// Greys out what cannot be done without a text to look for.
    virtual void updateButtons();

    EditorSearch &m_search;
    QGridLayout *m_fields;
    QVBoxLayout *m_buttons;
    QLineEdit *txtSearch;

private:
    void find(EditorSearch::Direction direction);
    void addOptions();

    QCheckBox *chkMatchCase;
    QCheckBox *chkWholeWord;
    QLabel *lblNote;
    QPushButton *cmdFindNext;
    QPushButton *cmdFindPrevious;
};
