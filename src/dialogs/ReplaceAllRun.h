#pragma once

#include "controls/EditorTarget.h"

#include <QObject>
#include <QString>
#include <QTimer>

#include <memory>

class ReplaceAll;

/// Replaces in an editor control until no occurrence is left, which may take for ever.
///
/// As often as the text has characters is replaced at once, which is all that most texts need. The
/// rest, and all of it where the replacement holds the searched text, is done in portions, between
/// which the program goes on as usual. The editor then shows the text each time that it has become
/// twice as long, so that the user sees what happens; and what the user types takes part: the
/// replacing goes on with the editor's text of that moment. The portions are so small that an
/// endless run takes hours, not seconds, to fill the memory.
///
/// Ends early with the editor control or with this object.
class ReplaceAllRun : public QObject
{
    Q_OBJECT
public:
    /// @param find  must not be empty
    ReplaceAllRun(const EditorTarget &target, const QString &find, const QString &replacement,
                  QObject *parent);
    ~ReplaceAllRun() override;

    /// @throws RuntimeError 91 without an editor control
    void start();

signals:
    void ended();

private:
    void goOn();
    void replacePortion();
    void showText();
    void noteTextChange();
    qsizetype portion() const;

    EditorTarget m_target;
    QString m_find;
    QString m_replacement;
    std::unique_ptr<ReplaceAll> m_work;
    QTimer m_pause;
    qsizetype m_shownLength = 0;
    bool m_showing = false;
    bool m_textChanged = false;
};
