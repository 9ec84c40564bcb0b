#pragma once

#include "controls/editor/EditorTarget.h"
#include "controls/forms/FormDialog.h"
#include "dataaccess/Recordset.h"

#include <memory>

class FlexGrid;
class QLineEdit;
class QPlainTextEdit;

/// Lists the statements that were run, newest first, and writes picked ones into the editor that
/// setTxt() has named. A pick, a double click or Enter on a row, leaves the dialog open.
/// Typing filters the list, and the statement that is selected shows whole below it.
class frmSQLHistory : public FormDialog
{
    Q_OBJECT
public:
    explicit frmSQLHistory(QWidget *parent = nullptr);

    void setTxt(EditorControl *ctl, QWidget *frm);

    /// Fills the grid with a header row of field names and one row per record; nulls read "NULL".
    /// A failure, which more than 32767 records are, is shown, and the grid then is empty.
    static void fillGrid(FlexGrid &grid, const std::shared_ptr<Recordset> &recordset);

protected:
    bool Form_Load() override;

private slots:
    void msfgSQL_DblClick();

private:
    void showRecords();
    void showStatement();

    QLineEdit *txtFilter;
    FlexGrid *msfgSQL;
    QPlainTextEdit *txtStatement;
    std::shared_ptr<Recordset> m_history;
    EditorTarget m_target;
};
