#include "controls/EditorReplaceDialog.h"

#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace {

constexpr int replacementRow = 1;
constexpr int buttonsBefore = 2;

} // namespace

EditorReplaceDialog::EditorReplaceDialog(EditorSearch &search, QWidget *parent)
    : EditorFindDialog(search, parent)
    , txtReplacement(new QLineEdit(this))
    , cmdReplace(addButton(u"cmdReplace"_s, u"&Replace"_s))
    , cmdReplaceAll(addButton(u"cmdReplaceAll"_s, u"Replace &All"_s))
{
    setObjectName(u"EditorReplaceDialog"_s);
    setWindowTitle(u"Replace"_s);
    txtReplacement->setObjectName(u"txtReplacement"_s);
    auto *label = new QLabel(u"R&eplace with:"_s, this);
    label->setBuddy(txtReplacement);
    m_fields->addWidget(label, replacementRow, 0);
    m_fields->addWidget(txtReplacement, replacementRow, 1);
    m_buttons->insertWidget(buttonsBefore, cmdReplace);
    m_buttons->insertWidget(buttonsBefore + 1, cmdReplaceAll);
    setTabOrder(txtSearch, txtReplacement);
    setTabOrder(findChild<QWidget *>(u"cmdFindPrevious"_s), cmdReplace);
    setTabOrder(cmdReplace, cmdReplaceAll);
    setTabOrder(cmdReplaceAll, findChild<QWidget *>(u"cmdClose"_s));

    connect(cmdReplace, &QPushButton::clicked, this, &EditorReplaceDialog::replaceOne);
    connect(cmdReplaceAll, &QPushButton::clicked, this, &EditorReplaceDialog::replaceAll);
    EditorReplaceDialog::updateButtons();
}

void EditorReplaceDialog::replaceOne()
{
    showResult(m_search.replace(wanted(), txtReplacement->text()));
}

void EditorReplaceDialog::replaceAll()
{
    const int count = m_search.replaceAll(wanted(), txtReplacement->text());
    if (count == 0)
        showResult(EditorSearch::Result::NotFound);
    else
        showNote(count == 1 ? u"1 occurrence replaced"_s : u"%1 occurrences replaced"_s.arg(count));
}

void EditorReplaceDialog::updateButtons()
{
    EditorFindDialog::updateButtons();
    const bool canReplace = !txtSearch->text().isEmpty() && !m_search.isReadOnly();
    cmdReplace->setEnabled(canReplace);
    cmdReplaceAll->setEnabled(canReplace);
}
