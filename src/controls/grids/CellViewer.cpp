#include "controls/grids/CellViewer.h"

#include "controls/forms/formControls.h"
#include "controls/forms/measures.h"
#include "controls/forms/selText.h"
#include "platform/errorTraps.h"

#include <QCheckBox>
#include <QDialogButtonBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QSignalBlocker>
#include <QSpinBox>
#include <QTextDocument>
#include <QVBoxLayout>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

constexpr QSize firstSize(640, 400);
/// Breaking a longer stretch without a blank between words would take time by its square.
constexpr qsizetype longestWord = 4096;

bool hasLongWord(const QString &text)
{
    qsizetype length = 0;
    return std::any_of(text.begin(), text.end(), [&length](QChar c) {
        length = c.isSpace() ? 0 : length + 1;
        return length > longestWord;
    });
}

} // namespace

CellViewer::CellViewer(QWidget *parent)
    : QDialog(parent)
    , txtValue(named(new QPlainTextEdit(this), u"txtValue"_s))
    , chkWrap(named(new QCheckBox(u"&Wrap lines"_s, this), u"chkWrap"_s))
    , chkLineEnds(named(new QCheckBox(u"Show line &ends"_s, this), u"chkLineEnds"_s))
    , lblSize(named(new QLabel(this), u"lblSize"_s))
    , m_partRow(new QWidget(this))
    , lblParts(named(new QLabel(m_partRow), u"lblParts"_s))
    , spnPart(named(new QSpinBox(m_partRow), u"spnPart"_s))
{
    setObjectName(u"CellViewer"_s);
    resize(firstSize);
    txtValue->setAccessibleName(tr("Value"));
    txtValue->setReadOnly(true);
    txtValue->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    txtValue->setUndoRedoEnabled(false);
    txtValue->setFont(fixedWidthFont());
    createOptions();
    createParts();

    auto *buttons = new QDialogButtonBox(this);
    auto *cmdCopy =
        named(buttons->addButton(u"&Copy"_s, QDialogButtonBox::ActionRole), u"cmdCopy"_s);
    auto *cmdClose =
        named(buttons->addButton(u"Close"_s, QDialogButtonBox::RejectRole), u"cmdClose"_s);
    cmdCopy->setToolTip(u"Copies what is selected, or else the whole value"_s);
    cmdClose->setDefault(true);
    connect(cmdCopy, &QPushButton::clicked, this, &CellViewer::copy);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::close);

    auto *options = new QHBoxLayout;
    options->addWidget(chkWrap);
    options->addWidget(chkLineEnds);
    options->addStretch();
    options->addWidget(lblSize);
    auto *layout = new QVBoxLayout(this);
    layout->addWidget(txtValue, 1);
    layout->addWidget(m_partRow);
    layout->addLayout(options);
    layout->addWidget(buttons);
}

void CellViewer::createOptions()
{
    chkWrap->setChecked(true);
    chkLineEnds->setChecked(true);
    for (const QCheckBox *box : {chkWrap, chkLineEnds})
        connect(box, &QCheckBox::toggled, this, &CellViewer::applyOptions);
}

void CellViewer::createParts()
{
    auto *label = new QLabel(u"&Part"_s, m_partRow);
    label->setBuddy(spnPart);
    spnPart->setAccessibleName(tr("Part"));
    spnPart->setMinimum(1);
    connect(spnPart, &QSpinBox::valueChanged, this, &CellViewer::showPart);
    auto *layout = new QHBoxLayout(m_partRow);
    layout->setContentsMargins({});
    for (QWidget *widget : std::initializer_list<QWidget *>{label, spnPart, lblParts})
        layout->addWidget(widget);
    layout->addStretch();
}

void CellViewer::showValue(const QString &title, const Value &value)
{
    setWindowTitle(title);
    m_parts = ValueParts(value);
    lblSize->setText(m_parts.sizeText());
    const auto parts = static_cast<int>(m_parts.count());
    m_partRow->setVisible(parts > 1);
    lblParts->setText(u"of %1"_s.arg(parts));
    {
        const QSignalBlocker once(spnPart);
        spnPart->setMaximum(parts);
        spnPart->setValue(1);
    }
    showPart(1);
    show();
    raise();
    activateWindow();
    txtValue->setFocus();
}

void CellViewer::showPart(int part)
{
    reportErrors([&] {
        const QString text = m_parts.part(part - 1);
        // Not laid out once in the old way and once in the new.
        txtValue->clear();
        txtValue->setWordWrapMode(hasLongWord(text) ? QTextOption::WrapAnywhere
                                                    : QTextOption::WrapAtWordBoundaryOrAnywhere);
        applyOptions();
        txtValue->setPlainText(text);
    });
}

void CellViewer::applyOptions()
{
    txtValue->setLineWrapMode(chkWrap->isChecked() ? QPlainTextEdit::WidgetWidth
                                                   : QPlainTextEdit::NoWrap);
    QTextOption option = txtValue->document()->defaultTextOption();
    option.setFlags(chkLineEnds->isChecked() ? QTextOption::ShowLineAndParagraphSeparators
                                             : QTextOption::Flags());
    txtValue->document()->setDefaultTextOption(option);
}

void CellViewer::copy() const
{
    reportErrors([&] {
        if (txtValue->textCursor().hasSelection())
            txtValue->copy();
        else
            copyToClipboard(m_parts.wholeText());
    });
}
