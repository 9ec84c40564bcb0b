#include "dialogs/frmFind.h"

#include "controls/forms/formControls.h"
#include "platform/errorTraps.h"

#include <QCheckBox>
#include <QFormLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

#include <algorithm>
#include <chrono>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace {

constexpr auto pauseBetweenPortions = 20ms;
constexpr int charactersPerPortion = 1'000'000; // some 50 ms
// Replacements, and the characters that they may add to the text.
constexpr qsizetype longestPortion = 100'000;
constexpr qsizetype growthPerPortion = 4096;

QString reversed(const QString &text)
{
    QString result(text.size(), Qt::Uninitialized);
    std::reverse_copy(text.begin(), text.end(), result.begin());
    return result;
}

} // namespace

frmFind::frmFind(QWidget *parent)
    : QDialog(parent)
{
    setObjectName(u"frmFind"_s);
    setWindowTitle(u"Search or Replace Text"_s);
    auto *layout = new QHBoxLayout(this);
    layout->addWidget(buildFields(), 1);
    layout->addWidget(buildButtons());
    resize(460, 0);
    connect(&m_nextPortion, &QTimer::timeout, this,
            [this] { endOnError([this] { replaceSome(); }); });
}

QWidget *frmFind::buildFields()
{
    auto *fields = new QWidget(this);
    txtFind = named(new QLineEdit(fields), u"txtFind"_s);
    txtFind->setAccessibleName(u"Search"_s);
    txtReplace = named(new QLineEdit(fields), u"txtReplace"_s);
    txtReplace->setAccessibleName(u"Replace"_s);
    auto *texts = new QFormLayout;
    texts->addRow(u"Search"_s, txtFind);
    texts->addRow(u"Replace"_s, txtReplace);
    setAccessKey(txtFind, Qt::Key_S, this);
    setAccessKey(txtReplace, Qt::Key_R, this);

    auto *option = new QGroupBox(u"Search Option"_s, fields);
    auto *chkCase =
        withAccessKey(named(new QCheckBox(u"Case Sensitive"_s, option), u"chkCase"_s), Qt::Key_I);
    auto *optionLayout = new QVBoxLayout(option);
    optionLayout->addWidget(chkCase);

    auto *layout = new QVBoxLayout(fields);
    layout->setContentsMargins({});
    layout->addLayout(texts);
    layout->addWidget(option);
    layout->addStretch(1);
    m_searching += fields;
    return fields;
}

QWidget *frmFind::buildButtons()
{
    auto *buttons = new QWidget(this);
    auto *layout = new QVBoxLayout(buttons);
    layout->setContentsMargins({});
    const auto addButton = [&](const QString &name, const QString &caption, Qt::Key key,
                               auto handler) {
        auto *button = withAccessKey(named(new QPushButton(caption, buttons), name), key);
        layout->addWidget(button);
        connect(button, &QPushButton::clicked, this, handler);
        return button;
    };
    auto *find = addButton(u"cmdFindFirst"_s, u"Find"_s, Qt::Key_F, &frmFind::cmdFindFirst_Click);
    find->setDefault(true);
    m_searching += find;
    m_searching +=
        addButton(u"cmdFindNext"_s, u"Find Next"_s, Qt::Key_N, &frmFind::cmdFindNext_Click);
    m_searching += addButton(u"cmdReplace"_s, u"Replace"_s, Qt::Key_P, &frmFind::cmdReplace_Click);
    m_searching +=
        addButton(u"cmdReplaceAll"_s, u"Replace All"_s, Qt::Key_A, &frmFind::cmdReplaceAll_Click);
    layout->addStretch(1);
    addButton(u"cmdFindCancel"_s, u"Cancel"_s, Qt::Key_C, &frmFind::cmdFindCancel_Click);
    return buttons;
}

void frmFind::setTxt(EditorControl *ctl, QWidget *frm)
{
    setReplacing(false);
    m_target = EditorTarget(ctl, frm);
    m_controlName = m_target.control().objectName();
}

void frmFind::setVisible(bool visible)
{
    if (!visible)
        setReplacing(false);
    QDialog::setVisible(visible);
}

void frmFind::cmdFindFirst_Click()
{
    endOnError([this] {
        if (!txtFind->text().isEmpty())
            findFrom(0, u"Search string not found"_s);
    });
}

void frmFind::cmdFindNext_Click()
{
    endOnError([this] { findNext(); });
}

void frmFind::cmdReplace_Click()
{
    endOnError([this] {
        m_target.control().setSelText(txtReplace->text());
        findNext();
        m_target.focusWindow();
    });
}

void frmFind::cmdReplaceAll_Click()
{
    endOnError([this] {
        if (txtFind->text().isEmpty() || txtReplace->text().isEmpty())
            return;
        takeText();
        replaceSome();
    });
}

void frmFind::cmdFindCancel_Click()
{
    endOnError([this] {
        m_target.focusWindow();
        reject();
    });
}

/// Moves the caret two characters on, match or not, and searches from the character after the one
/// that the selection began at.
void frmFind::findNext()
{
    if (txtFind->text().isEmpty())
        return;
    EditorControl &editor = m_target.control();
    // Where the caret comes to stand does not count: the text's end, a line end or a surrogate pair
    // can keep it back, and the same place would be found again.
    const int start = editor.SelStart();
    editor.setSelStart(start + 2);
    findFrom(start + 1, u"No more occurrences found"_s);
}

/// Selects the first occurrence that begins at @p start or later.
void frmFind::findFrom(qsizetype start, const QString &messageWhenMissing)
{
    EditorControl &editor = m_target.control();
    const QString find = txtFind->text();
    const qsizetype found = editor.Text().indexOf(find, start);
    if (found < 0) {
        showMessage(messageWhenMissing);
        return;
    }
    editor.setSelStart(static_cast<int>(found));
    editor.setSelLength(static_cast<int>(find.size()));
    m_target.focusWindow();
}

/// Begins with the editor's text of this moment.
void frmFind::takeText()
{
    m_shown = m_target.control().Text();
    m_done.clear();
    m_rest = reversed(m_shown);
    // One that is known to have no end does not hurry, so that it takes hours to fill the memory.
    m_allowed = txtReplace->text().contains(txtFind->text()) ? 0 : m_shown.size();
}

/// Replaces for a moment. The characters of the rest go over to what is done one by one, so that an
/// occurrence is seen when its last one comes; its replacement is put back to the rest, and so can
/// be a part of the next occurrence.
void frmFind::replaceSome()
{
    if (!m_target.exists())
        return setReplacing(false);
    if (m_target.control().Text() != m_shown)
        takeText();
    const QString find = txtFind->text();
    const QString replacement = reversed(txtReplace->text());
    const qsizetype growth = replacement.size() - find.size();
    m_allowed = std::max(m_allowed, growth > 0 ? growthPerPortion / growth + 1 : longestPortion);
    for (int left = charactersPerPortion; left > 0 && m_allowed > 0 && !m_rest.isEmpty(); --left) {
        m_done += m_rest.back();
        m_rest.chop(1);
        if (!m_done.endsWith(find))
            continue;
        m_done.chop(find.size());
        m_rest += replacement;
        --m_allowed;
    }
    if (m_rest.isEmpty() || m_done.size() + m_rest.size() >= 2 * m_shown.size())
        showText();
    setReplacing(!m_rest.isEmpty());
}

void frmFind::showText()
{
    const QString text = m_done + reversed(m_rest);
    if (text != m_shown)
        m_target.control().setText(text);
    m_shown = text;
}

void frmFind::setReplacing(bool on)
{
    if (on)
        m_nextPortion.start(pauseBetweenPortions);
    else
        m_nextPortion.stop();
    for (QWidget *widget : m_searching)
        widget->setEnabled(!on);
}
