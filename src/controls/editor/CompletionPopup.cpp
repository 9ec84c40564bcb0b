#include "controls/editor/CompletionPopup.h"

#include "controls/editor/EditorControl.h"
#include "controls/forms/formControls.h"
#include "dataaccess/text/SqlTokens.h"

#include <QCompleter>
#include <QKeyEvent>
#include <QListView>
#include <QScrollBar>
#include <QStringListModel>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

constexpr int shownEntries = 12;
/// Characters of a longer name that are shown.
constexpr int widestEntry = 64;
constexpr int longestName = 128;

} // namespace

CompletionPopup::CompletionPopup(EditorControl &editor)
    : QObject(&editor)
    , m_editor(editor)
    , m_names(new QStringListModel(this))
    , m_completer(new QCompleter(m_names, this))
{
    m_completer->setWidget(&m_editor);
    m_completer->setModelSorting(QCompleter::CaseInsensitivelySortedModel);
    m_completer->setCaseSensitivity(Qt::CaseInsensitive);
    m_completer->setWrapAround(false);
    m_completer->setMaxVisibleItems(shownEntries);
    auto *popup = named(new QListView, u"lstCompletions"_s);
    popup->setUniformItemSizes(true); // or every entry of thousands would be measured
    m_completer->setPopup(popup);
    popup->setAccessibleName(tr("Completions"));
    // Before the completer, which would hand Enter, Tab and Esc to the editor.
    popup->installEventFilter(this);
    connect(m_completer, qOverload<const QString &>(&QCompleter::activated), this,
            &CompletionPopup::take);
    connect(&m_editor, &EditorControl::caretMoved, this, [this] {
        if (isShown())
            list();
    });
}

bool CompletionPopup::isShown() const
{
    return m_completer->popup()->isVisible();
}

void CompletionPopup::show(const QStringList &names, int begin)
{
    m_begin = begin;
    m_names->setStringList(names);
    list();
}

/// Lists what fits what stands between the beginning and the caret now.
void CompletionPopup::list()
{
    const int caret = m_editor.caretPosition();
    const QString typed = m_editor.textBetween(m_begin, caret);
    m_completer->setCompletionPrefix(typed);
    if (caret < m_begin || !std::all_of(typed.begin(), typed.end(), isWordCharacter) ||
        m_completer->completionCount() == 0)
        return m_completer->popup()->hide();
    m_completer->complete(place(m_names->stringList()));
    m_completer->popup()->setCurrentIndex(m_completer->completionModel()->index(0, 0));
}

/// What is left of a name whose beginning was typed goes too; a word before which nothing was typed
/// stays.
void CompletionPopup::take(const QString &name)
{
    const int caret = m_editor.caretPosition();
    const QString after =
        m_editor.textBetween(caret, m_begin < caret ? caret + longestName : caret);
    const auto rest = std::find_if_not(after.begin(), after.end(), isWordCharacter);
    emit taken(name, m_begin, caret + static_cast<int>(rest - after.begin()));
}

/// Below the name, as wide as its entries.
QRect CompletionPopup::place(const QStringList &names) const
{
    const auto longest =
        std::max_element(names.begin(), names.end(),
                         [](const QString &a, const QString &b) { return a.size() < b.size(); });
    const QAbstractItemView &list = *m_completer->popup();
    const int text = list.fontMetrics().horizontalAdvance(longest->left(widestEntry) + u"MM"_s);
    QRect rectangle = m_editor.characterRectangle(m_begin);
    rectangle.moveTopLeft(m_editor.mapFromGlobal(rectangle.topLeft()));
    rectangle.setWidth(text + list.verticalScrollBar()->sizeHint().width());
    return rectangle;
}

bool CompletionPopup::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() != QEvent::KeyPress)
        return QObject::eventFilter(watched, event);
    const int key = static_cast<QKeyEvent *>(event)->key();
    const bool takes = isEnterPress(*event) || key == Qt::Key_Tab;
    if (!takes && key != Qt::Key_Escape && key != Qt::Key_Backtab)
        return QObject::eventFilter(watched, event);
    m_completer->popup()->hide();
    if (takes)
        take(m_completer->popup()->currentIndex().data().toString());
    return true;
}
