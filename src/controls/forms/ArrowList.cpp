#include "controls/forms/ArrowList.h"

#include "controls/forms/formControls.h"

#include <QAbstractItemView>
#include <QCompleter>
#include <QKeyEvent>
#include <QLineEdit>
#include <QStringListModel>

#include <algorithm>

using namespace Qt::StringLiterals;

ArrowList::ArrowList(QLineEdit &box, const QString &accessibleName,
                     std::function<QStringList()> names)
    : QObject(&box)
    , m_box(box)
    , m_ask(std::move(names))
    , m_names(new QStringListModel(this))
    , m_completer(new QCompleter(m_names, this))
{
    m_completer->setWidget(&m_box);
    m_completer->setCaseSensitivity(Qt::CaseInsensitive);
    m_completer->setWrapAround(false);
    // The box is named txtDb, for instance, and its list lstDb.
    named(m_completer->popup(), u"lst"_s + box.objectName().sliced(3))
        ->setAccessibleName(accessibleName);
    m_box.installEventFilter(this);
    connect(m_completer, qOverload<const QString &>(&QCompleter::activated), &m_box,
            &QLineEdit::setText);
    connect(&m_box, &QLineEdit::textEdited, this, [this](const QString &text) {
        if (m_completer->popup()->isVisible())
            showNames(text);
    });
}

bool ArrowList::eventFilter(QObject *watched, QEvent *event)
{
    const bool isArrow =
        event->type() == QEvent::KeyPress && static_cast<QKeyEvent *>(event)->key() == Qt::Key_Down;
    if (!isArrow)
        return QObject::eventFilter(watched, event);
    listAsked();
    return true;
}

void ArrowList::listAsked()
{
    const QStringList names = m_ask();
    m_names->setStringList(names);
    const QString text = m_box.text();
    const bool isBeginning = !names.contains(text, Qt::CaseInsensitive) &&
                             std::any_of(names.begin(), names.end(), [&](const QString &name) {
                                 return name.startsWith(text, Qt::CaseInsensitive);
                             });
    showNames(isBeginning ? text : QString());
}

void ArrowList::showNames(const QString &prefix)
{
    m_completer->setCompletionPrefix(prefix);
    if (m_completer->completionCount() == 0)
        return m_completer->popup()->hide();
    m_completer->complete();
    m_completer->popup()->setCurrentIndex(m_completer->completionModel()->index(0, 0));
}
