#include "controls/EditorFindDialog.h"

#include <QCheckBox>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

using namespace Qt::StringLiterals;

namespace {

constexpr int searchRow = 0;
// The row between is left to a dialog that has a second field.
constexpr int optionsRow = 2;
constexpr int noteRow = 3;
constexpr int fieldWidth = 280;

} // namespace

EditorFindDialog::EditorFindDialog(EditorSearch &search, QWidget *parent)
    : QDialog(parent)
    , m_search(search)
    , m_fields(new QGridLayout)
    , m_buttons(new QVBoxLayout)
    , txtSearch(new QLineEdit(this))
    , chkMatchCase(new QCheckBox(u"&Match case"_s, this))
    , chkWholeWord(new QCheckBox(u"&Whole word"_s, this))
    , lblNote(new QLabel(this))
{
    setObjectName(u"EditorFindDialog"_s);
    setWindowTitle(u"Find"_s);
    auto *layout = new QHBoxLayout(this);
    layout->addLayout(m_fields, 1);
    layout->addLayout(m_buttons);

    txtSearch->setObjectName(u"txtSearch"_s);
    txtSearch->setMinimumWidth(fieldWidth);
    auto *label = new QLabel(u"Fi&nd what:"_s, this);
    label->setBuddy(txtSearch);
    m_fields->addWidget(label, searchRow, 0);
    m_fields->addWidget(txtSearch, searchRow, 1);
    addOptions();

    cmdFindNext = addButton(u"cmdFindNext"_s, u"&Find Next"_s);
    cmdFindNext->setDefault(true);
    cmdFindPrevious = addButton(u"cmdFindPrevious"_s, u"Find &Previous"_s);
    connect(cmdFindNext, &QPushButton::clicked, this,
            [this] { find(EditorSearch::Direction::Forward); });
    connect(cmdFindPrevious, &QPushButton::clicked, this,
            [this] { find(EditorSearch::Direction::Backward); });
    QPushButton *cmdClose = addButton(u"cmdClose"_s, u"Close"_s);
    connect(cmdClose, &QPushButton::clicked, this, &QDialog::close);
    m_buttons->addStretch();

    connect(txtSearch, &QLineEdit::textChanged, this, [this] {
        showNote({});
        updateButtons();
    });
    EditorFindDialog::updateButtons();
}

void EditorFindDialog::addOptions()
{
    chkMatchCase->setObjectName(u"chkMatchCase"_s);
    chkWholeWord->setObjectName(u"chkWholeWord"_s);
    lblNote->setObjectName(u"lblNote"_s);
    auto *options = new QHBoxLayout;
    options->addWidget(chkMatchCase);
    options->addWidget(chkWholeWord);
    options->addStretch();
    m_fields->addLayout(options, optionsRow, 1);
    m_fields->addWidget(lblNote, noteRow, 1);
    m_fields->setRowStretch(noteRow + 1, 1);
}

QPushButton *EditorFindDialog::addButton(const QString &name, const QString &text)
{
    auto *button = new QPushButton(text, this);
    button->setObjectName(name);
    button->setAutoDefault(false);
    m_buttons->addWidget(button);
    return button;
}

void EditorFindDialog::showFor(const QString &selection)
{
    if (!selection.isEmpty() && !selection.contains(u'\n'))
        txtSearch->setText(selection);
    showNote({});
    updateButtons();
    show();
    raise();
    activateWindow();
    txtSearch->setFocus();
    txtSearch->selectAll();
}

SearchText EditorFindDialog::wanted() const
{
    return {txtSearch->text(), chkMatchCase->isChecked(), chkWholeWord->isChecked()};
}

void EditorFindDialog::find(EditorSearch::Direction direction)
{
    showResult(m_search.find(wanted(), direction));
}

void EditorFindDialog::showResult(EditorSearch::Result result)
{
    switch (result) {
    case EditorSearch::Result::NotFound:
        showNote(u"Not found: \"%1\""_s.arg(
            fontMetrics().elidedText(txtSearch->text(), Qt::ElideMiddle, fieldWidth / 2)));
        break;
    case EditorSearch::Result::Found:
        showNote({});
        break;
    case EditorSearch::Result::FoundAfterWrap:
        showNote(u"Went on at the text's other end"_s);
        break;
    }
}

void EditorFindDialog::showNote(const QString &note)
{
    lblNote->setText(note);
}

void EditorFindDialog::updateButtons()
{
    const bool hasText = !txtSearch->text().isEmpty();
    cmdFindNext->setEnabled(hasText);
    cmdFindPrevious->setEnabled(hasText);
}
