#pragma once

#include "controls/EditorFindDialog.h"

/// The editor control's own replace dialog.
class EditorReplaceDialog : public EditorFindDialog
{
    Q_OBJECT
public:
    explicit EditorReplaceDialog(EditorSearch &search, QWidget *parent = nullptr);

protected:
    void updateButtons() override;

private:
    void replaceOne();
    void replaceAll();

    QLineEdit *txtReplacement;
    QPushButton *cmdReplace;
    QPushButton *cmdReplaceAll;
};
