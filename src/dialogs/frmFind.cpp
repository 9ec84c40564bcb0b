#include "dialogs/frmFind.h"

#include "controls/accessKey.h"
#include "controls/named.h"
#include "dialogs/ReplaceAllRun.h"
#include "platform/errorTraps.h"

#include <QCheckBox>
#include <QFormLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

frmFind::frmFind(QWidget *parent)
    : QDialog(parent)
{
    setObjectName(u"frmFind"_s);
    setWindowTitle(u"Search or Replace Text"_s);
    auto *layout = new QHBoxLayout(this);
    layout->addWidget(buildFields(), 1);
    layout->addWidget(buildButtons());
    resize(460, 0);
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
    endReplacing();
    m_target = EditorTarget(ctl, frm);
    m_controlName = m_target.control().objectName();
}

void frmFind::setVisible(bool visible)
{
    if (!visible)
        endReplacing();
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
        if (!txtFind->text().isEmpty() && !txtReplace->text().isEmpty())
            beginReplacing();
    });
}

void frmFind::cmdFindCancel_Click()
{
    endOnError([this] {
        m_target.focusWindow();
        reject();
    });
}

/// Moves the caret two characters on, match or not, and searches from the character behind the one
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

void frmFind::beginReplacing()
{
    m_replacing = new ReplaceAllRun(m_target, txtFind->text(), txtReplace->text(), this);
    connect(m_replacing, &ReplaceAllRun::ended, this, &frmFind::endReplacing);
    m_replacing->start();
    if (!m_replacing)
        return;
    for (QWidget *widget : m_searching)
        widget->setEnabled(false);
}

void frmFind::endReplacing()
{
    if (!m_replacing)
        return;
    m_replacing->deleteLater();
    m_replacing.clear();
    for (QWidget *widget : m_searching)
        widget->setEnabled(true);
}
