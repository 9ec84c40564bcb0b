#pragma once

#include <QHash>
#include <QObject>
#include <QString>
#include <QTimer>

class EditorControl;
class QWidget;

/// Keeps how the user has set up the frame, its place, its size and the editor's zoom, from one
/// start to the next.
///
/// The program may end without asking its windows, so that what has changed is written down a
/// moment after the change; of several processes, the last one to change something is remembered.
/// Where nothing can be read or written, nothing is kept.
class FrameView : public QObject
{
    Q_OBJECT
public:
    /// Puts @p frame, which is not on the screen yet, where it was left.
    explicit FrameView(QWidget &frame);

    /// Shows the frame: as it was left, or maximized where whoever started the program wants that,
    /// which is then not taken as the user's wish.
    void show();

    /// Zooms the editor as it was left, and keeps its zoom from now on.
    void follow(EditorControl &editor);

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    QString remembered(const QString &key);
    void remember(const QString &key, const QString &value);
    void keepChanges();

    QWidget &m_frame;
    bool m_maximizedByStarter = false;
    int m_zoom = 0;
    QTimer m_untilKept;
    QHash<QString, QString> m_kept; ///< what is written down, by key
};
