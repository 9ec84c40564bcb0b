#pragma once

#include "controls/editor/CompletionPopup.h"
#include "sqltext/dictionary.h"

#include <QObject>

#include <memory>

class Connection;
class EditorControl;

/// Completes the name at an editor's caret from keywords and from the dictionary of the session's
/// connection, when it is asked to.
///
/// The dictionary is asked for what is needed and answers once for each connection; while the list
/// is shown, being asked again renews the answers. A dictionary that cannot be read adds nothing
/// and says nothing.
class EditorCompletion : public QObject
{
    Q_OBJECT
public:
    explicit EditorCompletion(EditorControl &txtSQL);

    void complete();

private:
    static QStringList askDictionary(const QString &query);
    void take(const QString &name, int begin, int end);

    EditorControl &txtSQL;
    CompletionPopup m_popup;
    DictionaryNames m_names;
    std::weak_ptr<Connection> m_asked; ///< whose names these are
    bool m_lowerCase = false;
};
