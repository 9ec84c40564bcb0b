#include "controls/editor/EditorPageSetup.h"

#include "controls/forms/CommonDialog.h"
#include "platform/RuntimeError.h"
#include "platform/errorTraps.h"

#include <Qsci/qsciprinter.h>
#include <Qsci/qsciscintillabase.h>

#include <QDialogButtonBox>
#include <QPageSetupDialog>
#include <QPrintDialog>
#include <QPushButton>

using namespace Qt::StringLiterals;

EditorPageSetup::EditorPageSetup(QsciScintillaBase &editor)
    : m_editor(editor)
{
}

EditorPageSetup::~EditorPageSetup() = default;

void EditorPageSetup::exec()
{
    // Looking for printers takes its time: not before somebody wants one.
    if (!m_printer)
        m_printer = std::make_unique<QsciPrinter>(QPrinter::HighResolution);
    QPageSetupDialog dialog(m_printer.get(), &m_editor);
    dialog.setObjectName(u"EditorPageSetupDialog"_s);
    bool wantsPrint = false;
    if (auto *buttons = dialog.findChild<QDialogButtonBox *>()) {
        QPushButton *cmdPrint = buttons->addButton(u"&Print..."_s, QDialogButtonBox::ActionRole);
        cmdPrint->setObjectName(u"cmdPrint"_s);
        QObject::connect(cmdPrint, &QPushButton::clicked, &dialog, [&dialog, &wantsPrint] {
            wantsPrint = true;
            dialog.accept();
        });
    } else if (m_printer->outputFormat() != QPrinter::NativeFormat) {
        m_printer.reset(); // the next time there may be one
        return showMessage(u"No printer is installed."_s);
    } else {
        wantsPrint = true; // the system's own dialog has no place for a button: printing follows it
    }
    nameParts(dialog);
    if (dialog.exec() == QDialog::Accepted && wantsPrint)
        print(&m_editor);
}

void EditorPageSetup::print(QWidget *parent)
{
    QPrintDialog dialog(m_printer.get(), parent);
    dialog.setObjectName(u"EditorPrintDialog"_s);
    const bool hasSelection = m_editor.SendScintilla(QsciScintillaBase::SCI_GETSELECTIONEMPTY) == 0;
    dialog.setOption(QAbstractPrintDialog::PrintSelection, hasSelection);
    nameParts(dialog);
    if (dialog.exec() != QDialog::Accepted)
        return;
    const auto line = [this](unsigned int end) {
        return static_cast<int>(m_editor.SendScintilla(QsciScintillaBase::SCI_LINEFROMPOSITION,
                                                       m_editor.SendScintilla(end)));
    };
    const bool selectionOnly = dialog.printRange() == QAbstractPrintDialog::Selection;
    const int from = selectionOnly ? line(QsciScintillaBase::SCI_GETSELECTIONSTART) : -1;
    const int to = selectionOnly ? line(QsciScintillaBase::SCI_GETSELECTIONEND) : -1;
    if (m_printer->printRange(&m_editor, from, to) == 0)
        throw RuntimeError(ErrorNumber::PrinterError);
}
