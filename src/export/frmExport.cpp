#include "export/frmExport.h"

#include "controls/forms/FormDialog.h"
#include "controls/forms/WaitingLoop.h"
#include "controls/forms/formControls.h"
#include "export/exportFormats.h"
#include "platform/errorTraps.h"
#include "platform/process.h"

#include <QButtonGroup>
#include <QGridLayout>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QVBoxLayout>

#include <functional>
#include <utility>

using namespace Qt::StringLiterals;

/// How one of the text exports asks, writes and speaks.
struct TextExport
{
    QString extension; ///< of its files
    QString kind;
    QString cancelTitle;  ///< empty: nothing is said
    QString successTitle; ///< empty: nothing is said
    bool reportsErrors;
    /// @returns the number of records written, where they are counted
    std::function<qint16(Recordset &, const QString &path)> write;
};

namespace {

enum ExportOption { Comma, Worksheet, Tab, Insert, OtherDelimiter };

constexpr QLatin1StringView lineEnd("\r\n");

TextExport commaExport()
{
    return {.extension = u"CSV"_s,
            .kind = u"Comma Delimited"_s,
            .cancelTitle = QString(),
            .successTitle = QString(),
            .reportsErrors = false,
            .write = [](Recordset &recordset, const QString &path) {
                writeCommaDelimited(recordset, path);
                return qint16{0};
            }};
}

/// Tab and other delimiter share their texts, which speak of commas.
TextExport tabExport(const QString &separator, bool reportsErrors)
{
    return {.extension = u"TXT"_s,
            .kind = u"Tab Delimited"_s,
            .cancelTitle = u"comma Delimited Export File"_s,
            .successTitle = u"Comma delimited file"_s,
            .reportsErrors = reportsErrors,
            .write = [separator](Recordset &recordset, const QString &path) {
                return writeDelimited(recordset, path, separator);
            }};
}

TextExport insertExport(const QString &tableName)
{
    return {.extension = u"SQL"_s,
            .kind = u"SQL"_s,
            .cancelTitle = u"SQL Export File"_s,
            .successTitle = u"SQL file"_s,
            .reportsErrors = true,
            .write = [tableName](Recordset &recordset, const QString &path) {
                return writeInsertStatements(recordset, path, tableName);
            }};
}

} // namespace

frmExport::frmExport(QWidget *parent)
    : QDialog(parent)
{
    setObjectName(u"frmExport"_s);
    setWindowTitle(u"Save/Export Data"_s);
    auto *layout = new QVBoxLayout(this);
    layout->addWidget(buildOptions());
    m_lblRows = named(new QLabel(this), u"lblRows"_s);
    layout->addWidget(m_lblRows);
    layout->addWidget(buildButtons());
    optExport[Comma]->setChecked(true);
}

QWidget *frmExport::buildOptions()
{
    const std::array options{
        std::pair(u"ASCII (csv)"_s, Qt::Key_A), std::pair(u"Excel (XLS)"_s, Qt::Key_E),
        std::pair(u"Tab delimited"_s, Qt::Key_T), std::pair(u"Insert statements"_s, Qt::Key_I),
        std::pair(u"Other delimiter"_s, Qt::Key_D)};
    auto *frame = new QGroupBox(this);
    auto *layout = new QGridLayout(frame);
    auto *group = new QButtonGroup(frame);
    for (int index = 0; index < static_cast<int>(options.size()); ++index) {
        const auto &[caption, key] = options[index];
        optExport[index] = withAccessKey(
            named(new QRadioButton(caption, frame), u"optExport_%1"_s.arg(index)), key);
        group->addButton(optExport[index], index);
        layout->addWidget(optExport[index], index, 0);
    }
    txtDelimiter = named(new QLineEdit(frame), u"txtDelimiter"_s);
    txtDelimiter->setAccessibleName(u"Delimiter"_s);
    layout->addWidget(txtDelimiter, OtherDelimiter, 1);
    connect(group, &QButtonGroup::idToggled, this, [this](int index, bool selected) {
        if (selected)
            optExport_Click(index);
    });
    return frame;
}

QWidget *frmExport::buildButtons()
{
    const OkCancelButtons buttons(this, u"cmdExpOK"_s, u"cmdExpCancel"_s);
    connect(buttons.ok, &QPushButton::clicked, this, &frmExport::cmdExpOK_Click);
    connect(buttons.cancel, &QPushButton::clicked, this, &frmExport::cmdExpCancel_Click);
    return buttons.box;
}

void frmExport::setRs(const std::shared_ptr<Recordset> &rs)
{
    m_recordset = rs;
    setHasMore(false);
}

void frmExport::setHasMore(bool hasMore)
{
    const bool isOpen = m_recordset && m_recordset->State() == adStateOpen;
    const qint64 rows = isOpen && !m_recordset->Eof() ? m_recordset->RecordCount() : 0;
    const QString written = rows == 1 ? tr("1 row") : tr("%1 rows").arg(rows);
    m_lblRows->setText(hasMore ? tr("%1 will be written; more wait on the server").arg(written)
                               : tr("%1 will be written").arg(written));
}

void frmExport::optExport_Click(int)
{
    txtDelimiter->setEnabled(optExport[OtherDelimiter]->isChecked());
}

/// The worksheet option has no writer: it only closes the dialog.
void frmExport::cmdExpOK_Click()
{
    if (optExport[Comma]->isChecked())
        exportText(commaExport());
    if (optExport[Tab]->isChecked())
        exportText(tabExport(u"\t"_s, true));
    if (optExport[Insert]->isChecked())
        exportText(insertExport(m_tableName));
    if (optExport[OtherDelimiter]->isChecked())
        exportText(tabExport(txtDelimiter->text(), false));
    accept();
}

void frmExport::cmdExpCancel_Click()
{
    reject();
}

void frmExport::exportText(const TextExport &format)
{
    try {
        if (!m_recordset)
            throw RuntimeError(ErrorNumber::ObjectVariableNotSet);
        if (m_recordset->Eof())
            return;
        const QString path = askForFile(format);
        int records = 0;
        {
            const HourglassPointer hourglass;
            records = format.write(*m_recordset, path);
        }
        if (!format.successTitle.isEmpty())
            inform(u"Export File "_s + path + lineEnd + u"successfully created."_s + lineEnd +
                       QString::number(records) + u" records written to disk."_s + lineEnd,
                   format.successTitle);
    } catch (...) {
        const RuntimeError error = currentRuntimeError();
        if (error.number == ErrorNumber::CancelWasSelected && !format.cancelTitle.isEmpty())
            inform(u"the export operation was canceled."_s + lineEnd, format.cancelTitle);
        else if (format.reportsErrors)
            showMessage(QString::number(error.number) + u" "_s + error.description);
    }
}

/// @throws RuntimeError 32755 when the user cancels
QString frmExport::askForFile(const TextExport &format)
{
    CD1.CancelError = true;
    CD1.FileName = u"Export."_s + format.extension.toLower();
    CD1.InitDir = applicationFolder();
    CD1.DialogTitle = u"Save %1 Export File"_s.arg(format.kind);
    CD1.Filter = u"Export Files (*.%1)|*.%1"_s.arg(format.extension);
    CD1.DefaultExt = format.extension;
    CD1.ShowSave();
    return CD1.FileName;
}
