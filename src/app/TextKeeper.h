#pragma once

#include "platform/RecoveryFile.h"

#include <QElapsedTimer>
#include <QObject>
#include <QThreadPool>
#include <QTimer>

class EditorControl;

/// Keeps an editor's text in a RecoveryFile while it is being written, for as long as the editor
/// lives. Keys do not wait for it: a text is taken in a pause, or when it has not been for a
/// while, and reaches the disk on another thread.
class TextKeeper : public QObject
{
    Q_OBJECT
public:
    /// Becomes a child of @p editor, and ends with it.
    explicit TextKeeper(EditorControl &editor);
    ~TextKeeper() override;

    /// Keeps what the editor holds now, and returns when that is on disk or has failed.
    void keepNow();

private:
    void noteChange();
    void keepInPause();
    void keep();

    EditorControl &m_editor;
    RecoveryFile m_file;
    QThreadPool m_writer; ///< of one thread; it has to end before the file
    QTimer m_untilKept;
    QElapsedTimer m_sinceChange;
    QElapsedTimer m_sinceFirstChange;
};
