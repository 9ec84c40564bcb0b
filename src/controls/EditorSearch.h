#pragma once

#include <QString>

class EditorControl;
class EditorFindDialog;
class EditorReplaceDialog;

/// What to look for in an editor's text.
struct SearchText
{
    QString text;
    bool matchCase = false;
    bool wholeWord = false;
};

/// Finds and replaces in one editor control's text, and owns the dialogs for it.
class EditorSearch
{
public:
    explicit EditorSearch(EditorControl &editor);

    enum class Result { NotFound, Found, FoundAfterWrap };
    enum class Direction { Forward, Backward };

    /// Selects the next occurrence behind or before the selection; goes on at the text's other end
    /// when there is none.
    Result find(const SearchText &wanted, Direction direction);
    /// Replaces the selection if it is an occurrence, then finds the next one.
    Result replace(const SearchText &wanted, const QString &replacement);
    /// Replaces every occurrence, in one step for undo and in time linear in the text.
    /// @returns how many there were
    int replaceAll(const SearchText &wanted, const QString &replacement);
    bool isReadOnly() const;

    void showFind();
    void showReplace();

private:
    template <typename Dialog>
    void show(Dialog *&dialog);
    void select(qsizetype begin, qsizetype length);

    EditorControl &m_editor;
    EditorFindDialog *m_findDialog = nullptr;
    EditorReplaceDialog *m_replaceDialog = nullptr;
};
