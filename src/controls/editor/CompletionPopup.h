#pragma once

#include <QObject>
#include <QString>

class EditorControl;
class QCompleter;
class QRect;
class QStringListModel;

/// The list of what a name in an editor control can be completed to.
///
/// It narrows while the name is typed on and goes when the caret leaves it, at Esc, and at a click
/// elsewhere. Enter, Tab and a click take an entry.
class CompletionPopup : public QObject
{
    Q_OBJECT
public:
    explicit CompletionPopup(EditorControl &editor);

    /// Lists those of @p names that begin with the text between @p begin, a position, and the
    /// caret, in any letter case; nothing is shown when there is none.
    /// @param names  in alphabetical order without regard to letter case
    void show(const QStringList &names, int begin);
    bool isShown() const;

signals:
    /// An entry has been taken for the text between two positions of the editor.
    void taken(const QString &name, int begin, int end);

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void list();
    void take(const QString &name);
    QRect place(const QStringList &names) const;

    EditorControl &m_editor;
    QStringListModel *m_names;
    QCompleter *m_completer;
    int m_begin = 0;
};
