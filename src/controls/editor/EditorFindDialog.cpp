#include "controls/editor/EditorFindDialog.h"

#include "controls/editor/EditorControl.h"
#include "controls/forms/formControls.h"

#include <QCheckBox>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QShortcut>
#include <QToolTip>

using namespace Qt::StringLiterals;

namespace {

constexpr int fieldWidth = 280;

/// The last occurrence that ends at @p position or before.
QRegularExpressionMatch lastUpTo(qsizetype position, const QString &text,
                                 const QRegularExpression &wanted)
{
    QRegularExpressionMatch last;
    for (auto matches = wanted.globalMatch(text); matches.hasNext();) {
        const QRegularExpressionMatch match = matches.next();
        if (match.capturedEnd() > position)
            break;
        last = match;
    }
    return last;
}

} // namespace

EditorFindDialog::EditorFindDialog(EditorControl &editor)
    : QDialog(&editor)
    , m_editor(editor)
{
    setObjectName(u"EditorFindDialog"_s);
    auto *layout = new QHBoxLayout(this);
    layout->addLayout(buildFields(), 1);
    layout->addLayout(buildButtons());
    connect(txtSearch, &QLineEdit::textChanged, this, [this] {
        lblNote->clear();
        updateButtons();
    });
    for (const auto &[key, forward] : keysToFindAgain)
        connect(new QShortcut(key, this), &QShortcut::activated, this,
                [this, forward = forward] { findAgain(forward); });
    updateButtons();
}

QLayout *EditorFindDialog::buildFields()
{
    txtSearch = named(new QLineEdit(this), u"txtSearch"_s);
    txtSearch->setMinimumWidth(fieldWidth);
    txtReplacement = named(new QLineEdit(this), u"txtReplacement"_s);
    chkMatchCase = named(new QCheckBox(u"&Match case"_s, this), u"chkMatchCase"_s);
    chkWholeWord = named(new QCheckBox(u"&Whole word"_s, this), u"chkWholeWord"_s);
    lblNote = named(new QLabel(this), u"lblNote"_s);
    auto *options = new QHBoxLayout;
    options->addWidget(chkMatchCase);
    options->addWidget(chkWholeWord);
    options->addStretch();
    m_fields = new QFormLayout;
    m_fields->addRow(u"Fi&nd what:"_s, txtSearch);
    m_fields->addRow(u"R&eplace with:"_s, txtReplacement);
    m_fields->addRow(nullptr, options);
    m_fields->addRow(nullptr, lblNote);
    return m_fields;
}

QLayout *EditorFindDialog::buildButtons()
{
    auto *buttons = new QVBoxLayout;
    const auto add = [&](const QString &name, const QString &text, auto pressed) {
        auto *button = named(new QPushButton(text, this), name);
        button->setAutoDefault(false);
        connect(button, &QPushButton::clicked, this, pressed);
        buttons->addWidget(button);
        return button;
    };
    m_finding = {add(u"cmdFindNext"_s, u"&Find Next"_s, [this] { find(true); }),
                 add(u"cmdFindPrevious"_s, u"Find &Previous"_s, [this] { find(false); })};
    m_finding.first()->setDefault(true);
    m_replacing = {add(u"cmdReplace"_s, u"&Replace"_s, [this] { replaceOne(); }),
                   add(u"cmdReplaceAll"_s, u"Replace &All"_s, [this] { replaceAll(); })};
    add(u"cmdClose"_s, u"Close"_s, [this] { close(); });
    buttons->addStretch();
    return buttons;
}

void EditorFindDialog::showFor(bool replacing)
{
    setWindowTitle(replacing ? u"Replace"_s : u"Find"_s);
    m_fields->setRowVisible(txtReplacement, replacing);
    for (QPushButton *button : m_replacing)
        button->setVisible(replacing);
    const QString selection = m_editor.SelText();
    if (!selection.isEmpty() && !selection.contains(u'\n'))
        txtSearch->setText(selection);
    lblNote->clear();
    updateButtons();
    show();
    raise();
    activateWindow();
    txtSearch->setFocus();
    txtSearch->selectAll();
}

void EditorFindDialog::updateButtons()
{
    const bool hasText = !txtSearch->text().isEmpty();
    for (QPushButton *button : m_finding)
        button->setEnabled(hasText);
    for (QPushButton *button : m_replacing)
        button->setEnabled(hasText && !m_editor.ReadOnly());
}

void EditorFindDialog::findAgain(bool forward)
{
    if (txtSearch->text().isEmpty())
        return showFor(false);
    find(forward);
    if (!isVisible())
        QToolTip::showText(m_editor.characterRectangle(m_editor.SelStart()).bottomLeft(),
                           lblNote->text(), &m_editor);
}

QRegularExpression EditorFindDialog::wanted() const
{
    QString pattern = QRegularExpression::escape(txtSearch->text());
    if (chkWholeWord->isChecked())
        pattern = uR"((?<![\w$#]))"_s + pattern + uR"((?![\w$#]))"_s;
    QRegularExpression::PatternOptions options = QRegularExpression::UseUnicodePropertiesOption;
    if (!chkMatchCase->isChecked())
        options |= QRegularExpression::CaseInsensitiveOption;
    return QRegularExpression(pattern, options);
}

void EditorFindDialog::find(bool forward)
{
    const QString text = m_editor.Text();
    const int begin = m_editor.SelStart();
    QRegularExpressionMatch match = forward ? wanted().match(text, begin + m_editor.SelLength())
                                            : lastUpTo(begin, text, wanted());
    const bool wraps = !match.hasMatch();
    if (wraps)
        match = forward ? wanted().match(text) : lastUpTo(text.size(), text, wanted());
    if (!match.hasMatch()) {
        lblNote->setText(u"Not found: \"%1\""_s.arg(
            fontMetrics().elidedText(txtSearch->text(), Qt::ElideMiddle, fieldWidth / 2)));
        return;
    }
    m_editor.setSelStart(static_cast<int>(match.capturedStart()));
    m_editor.setSelLength(static_cast<int>(match.capturedLength()));
    lblNote->setText(wraps ? u"Went on at the text's other end"_s : QString());
}

void EditorFindDialog::replaceOne()
{
    const QRegularExpressionMatch match =
        wanted().match(m_editor.Text(), m_editor.SelStart(), QRegularExpression::NormalMatch,
                       QRegularExpression::AnchorAtOffsetMatchOption);
    if (match.hasMatch() && match.captured() == m_editor.SelText())
        m_editor.setSelText(txtReplacement->text());
    find(true);
}

void EditorFindDialog::replaceAll()
{
    const QString text = m_editor.Text();
    // What stands between the first and the last occurrence is put together here and exchanged at
    // once: replacing each in the widget would have it count a long line anew for each.
    QString exchanged;
    qsizetype begin = 0;
    qsizetype end = 0;
    int count = 0;
    for (auto matches = wanted().globalMatch(text); matches.hasNext(); ++count) {
        const QRegularExpressionMatch match = matches.next();
        if (count == 0)
            begin = end = match.capturedStart();
        exchanged += QStringView(text).sliced(end, match.capturedStart() - end);
        exchanged += txtReplacement->text();
        end = match.capturedEnd();
    }
    if (count == 0)
        return find(true);
    m_editor.exchange(static_cast<int>(begin), static_cast<int>(end), exchanged);
    lblNote->setText(count == 1 ? u"1 occurrence replaced"_s
                                : u"%1 occurrences replaced"_s.arg(count));
}
