#include "controls/forms/selText.h"

#include "controls/editor/EditorControl.h"

#include <QApplication>
#include <QComboBox>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QMimeData>
#include <QPlainTextEdit>

using namespace Qt::StringLiterals;

namespace {

/// Qt's text boxes separate paragraphs by U+2029 in a selection; the clipboard wants line ends.
QString withLineEnds(QString text)
{
    return text.replace(QChar::ParagraphSeparator, u"\r\n"_s);
}

QString selectedItems(const QListWidget &list)
{
    QStringList lines;
    for (const QListWidgetItem *item : list.selectedItems())
        lines += item->text();
    return lines.join(u"\r\n"_s);
}

/// The line edit that a combo box types into; null for other controls and for fixed lists.
QLineEdit *lineEditOf(const QWidget *control)
{
    if (const auto *combo = qobject_cast<const QComboBox *>(control))
        return combo->lineEdit();
    return nullptr;
}

} // namespace

QString selText(const QWidget *control)
{
    if (const auto *editor = qobject_cast<const EditorControl *>(control))
        return editor->SelText();
    if (const auto *box = qobject_cast<const QPlainTextEdit *>(control))
        return withLineEnds(box->textCursor().selectedText());
    if (const auto *list = qobject_cast<const QListWidget *>(control))
        return selectedItems(*list);
    if (const auto *label = qobject_cast<const QLabel *>(control))
        return label->selectedText();
    if (const QLineEdit *box = lineEditOf(control))
        return box->selectedText();
    if (const auto *box = qobject_cast<const QLineEdit *>(control)) {
        // What a password box shows is not its text.
        return box->echoMode() == QLineEdit::Normal ? box->selectedText() : QString();
    }
    // The grids and the tree have a property for it, other controls have no such text.
    return control == nullptr ? QString() : control->property("SelText").toString();
}

void setSelText(QWidget *control, const QString &text)
{
    if (auto *editor = qobject_cast<EditorControl *>(control)) {
        if (!editor->ReadOnly())
            editor->setSelText(text);
    } else if (auto *box = qobject_cast<QPlainTextEdit *>(control)) {
        if (!box->isReadOnly())
            box->insertPlainText(text);
    } else if (QLineEdit *comboBox = lineEditOf(control)) {
        comboBox->insert(text);
    } else if (auto *lineEdit = qobject_cast<QLineEdit *>(control)) {
        if (!lineEdit->isReadOnly())
            lineEdit->insert(text);
    }
}

EditorControl *focusedEditor()
{
    return qobject_cast<EditorControl *>(QApplication::focusWidget());
}

bool OutputPane::event(QEvent *event)
{
    const bool claimsKey = event->type() == QEvent::ShortcutOverride;
    if (claimsKey && static_cast<QKeyEvent *>(event)->matches(QKeySequence::SelectAll))
        return true;
    return QPlainTextEdit::event(event);
}

QMimeData *OutputPane::createMimeDataFromSelection() const
{
    auto *copied = new QMimeData;
    copied->setText(selText(this));
    return copied;
}
