#pragma once

#include <QObject>
#include <QStringList>

#include <functional>

class QCompleter;
class QLineEdit;
class QStringListModel;

/// Lists what a line edit can be completed to when the arrow down is pressed in it, and at no other
/// time: the names that begin with its text, or all when the text is one of them or none does. The
/// list narrows while the text is typed on; Enter, Tab and a click take an entry.
class ArrowList : public QObject
{
    Q_OBJECT
public:
    /// @param names  asked each time, as what there is may depend on other controls
    ArrowList(QLineEdit &box, const QString &accessibleName, std::function<QStringList()> names);

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void showNames(const QString &prefix);
    void listAsked();

    QLineEdit &m_box;
    std::function<QStringList()> m_ask;
    QStringListModel *m_names;
    QCompleter *m_completer;
};
