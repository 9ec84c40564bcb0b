#pragma once

#include "controls/forms/CommonDialog.h"
#include "dataaccess/Recordset.h"

#include <QDialog>
#include <QString>

#include <array>
#include <memory>

class QLabel;
class QLineEdit;
class QRadioButton;
struct TextExport;

/// Writes a recordset to a file that the user names, in one of five ways. The worksheet among them
/// writes nothing.
class frmExport : public QDialog
{
    Q_OBJECT
public:
    explicit frmExport(QWidget *parent = nullptr);

    /// The recordset to export. One that stands at its end is not exported.
    void setRs(const std::shared_ptr<Recordset> &rs);
    /// Whether rows that are not in the recordset wait on the server; the dialog says so.
    void setHasMore(bool hasMore);
    /// The table that insert statements name; none at first.
    void setTable(const QString &tbname) { m_tableName = tbname; }

private slots:
    void optExport_Click(int index);
    void cmdExpOK_Click();
    void cmdExpCancel_Click();

private:
    QWidget *buildOptions();
    QWidget *buildButtons();

    void exportText(const TextExport &format);
    QString askForFile(const TextExport &format);

    std::array<QRadioButton *, 5> optExport{};
    QLineEdit *txtDelimiter = nullptr;
    QLabel *m_lblRows = nullptr;
    CommonDialog CD1{this};

    std::shared_ptr<Recordset> m_recordset;
    QString m_tableName;
};
