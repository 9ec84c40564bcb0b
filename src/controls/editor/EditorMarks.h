#pragma once

#include <QObject>

class QsciScintilla;

/// Marks in the margin of an editor, each for some lines of its text.
class EditorMarks : public QObject
{
    Q_OBJECT
public:
    explicit EditorMarks(QsciScintilla &editor);

    void add(long firstLine, long lastLine, const QString &text);
    void clear();

    /// Shows a mark's text where the mouse rests on the margin.
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void forget(long firstLine, long lastLine);

    QsciScintilla &m_editor;
    int m_count = 0;
};
