#include "controls/forms/CommonDialog.h"

#include "controls/forms/formControls.h"
#include "platform/RuntimeError.h"

#include <QAbstractItemView>
#include <QAccessible>
#include <QColorDialog>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QDir>
#include <QFileDialog>
#include <QFontDialog>
#include <QGridLayout>
#include <QLabel>
#include <QPushButton>
#include <QStringList>
#include <QTabWidget>

using namespace Qt::StringLiterals;

namespace {

/// `All Files (*.*)|*.*|SQL File (*.sql)|*.sql` as the toolkit's name filters. Here a file may well
/// have no dot in its name, so the pattern for all files is `*`.
QStringList nameFilters(const QString &filter)
{
    const QStringList parts = filter.split(u'|');
    QStringList result;
    for (qsizetype i = 0; i + 1 < parts.size(); i += 2) {
        QStringList patterns = parts[i + 1].split(u';', Qt::SkipEmptyParts);
        patterns.replaceInStrings(u"*.*"_s, u"*"_s);
        result.append(u"%1 (%2)"_s.arg(parts[i], patterns.join(u' ')));
    }
    return result;
}

QString accessibleName(QWidget &widget)
{
    return QAccessible::queryAccessibleInterface(&widget)->text(QAccessible::Name);
}

/// A label at the top of a column, such as "Size", is for all that stands below it.
void nameColumns(QGridLayout &grid)
{
    for (int column = 0; column < grid.columnCount(); ++column) {
        const QLayoutItem *const head = grid.itemAtPosition(0, column);
        const auto *label = head != nullptr ? qobject_cast<QLabel *>(head->widget()) : nullptr;
        for (int row = 1; label != nullptr && row < grid.rowCount(); ++row) {
            const QLayoutItem *const item = grid.itemAtPosition(row, column);
            QWidget *const part = item != nullptr ? item->widget() : nullptr;
            if (part != nullptr && accessibleName(*part).isEmpty())
                part->setAccessibleName(withoutMnemonic(label->text()));
        }
    }
}

} // namespace

void nameParts(QDialog &dialog)
{
    for (QComboBox *combo : dialog.findChildren<QComboBox *>())
        combo->view()->setAccessibleName(accessibleName(*combo));
    for (QTabWidget *pages : dialog.findChildren<QTabWidget *>())
        pages->setAccessibleName(dialog.windowTitle());
    for (QGridLayout *grid : dialog.findChildren<QGridLayout *>())
        nameColumns(*grid);
}

/// @returns @p accepted. @throws RuntimeError 32755 when it was not, and the control is set to
/// raise that
bool CommonDialog::isAccepted(bool accepted) const
{
    if (!accepted && CancelError)
        throw RuntimeError(ErrorNumber::CancelWasSelected);
    return accepted;
}

/// Runs a dialog; @returns and throws as isAccepted()
bool CommonDialog::run(QDialog &dialog, const QString &objectName) const
{
    dialog.setObjectName(objectName);
    if (!DialogTitle.isEmpty())
        dialog.setWindowTitle(DialogTitle);
    nameParts(dialog);
    return isAccepted(dialog.exec() == QDialog::Accepted);
}

void CommonDialog::runFileDialog(QFileDialog &dialog, const QString &objectName)
{
    dialog.setOption(QFileDialog::HideNameFilterDetails);
    dialog.setNameFilters(nameFilters(Filter));
    if (!InitDir.isEmpty())
        dialog.setDirectory(InitDir);
    if (!FileName.isEmpty())
        dialog.selectFile(FileName);
    const bool accepted = run(dialog, objectName);
    FileName = accepted ? QDir::toNativeSeparators(dialog.selectedFiles().value(0)) : QString();
}

void CommonDialog::ShowOpen()
{
    QFileDialog dialog(m_parent, u"Open"_s);
    dialog.setFileMode(QFileDialog::ExistingFile);
    runFileDialog(dialog, u"dlgOpen"_s);
}

void CommonDialog::ShowSave()
{
    QFileDialog dialog(m_parent, u"Save As"_s);
    dialog.setAcceptMode(QFileDialog::AcceptSave);
    dialog.setFileMode(QFileDialog::AnyFile);
    dialog.setOption(QFileDialog::DontConfirmOverwrite);
    dialog.setDefaultSuffix(DefaultExt);
    runFileDialog(dialog, u"dlgSave"_s);
}

void CommonDialog::ShowColor()
{
    if (const auto chosen = askSystemForColour(m_parent, Color)) {
        isAccepted(*chosen);
        return;
    }
    QColorDialog dialog(m_parent);
    if (Color.isValid())
        dialog.setCurrentColor(Color);
    if (run(dialog, u"dlgColor"_s))
        Color = dialog.selectedColor();
}

void CommonDialog::ShowFont()
{
    QFontDialog dialog(Font, m_parent);
    // A desktop's own one has no place for the button.
    dialog.setOption(QFontDialog::DontUseNativeDialog);
    QColor color = Color;
    QPushButton *cmdColor = dialog.findChild<QDialogButtonBox *>()->addButton(
        u"Co&lor..."_s, QDialogButtonBox::ActionRole);
    cmdColor->setAutoDefault(false);
    QObject::connect(cmdColor, &QPushButton::clicked, &dialog, [&] {
        const QColor before = color.isValid() ? color : QColor(Qt::black);
        const QColor chosen = QColorDialog::getColor(before, &dialog);
        if (!chosen.isValid())
            return;
        color = chosen;
        QPixmap swatch(cmdColor->iconSize());
        swatch.fill(color);
        cmdColor->setIcon(swatch);
    });
    if (!run(dialog, u"dlgFont"_s))
        return;
    Font = dialog.selectedFont();
    Color = color;
}
