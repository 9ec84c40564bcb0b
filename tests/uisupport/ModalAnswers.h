#pragma once

#include <QObject>
#include <QString>
#include <QStringList>
#include <QTimer>

#include <functional>
#include <utility>

class QMessageBox;
class QWidget;

/// Answers message boxes as a user would, by pressing one of their buttons, for as long as it
/// lives, and keeps what they said.
class MessageAnswers : public QObject
{
    Q_OBJECT
public:
    /// @param answer  the caption of the button to press; a box without it is accepted with Enter
    explicit MessageAnswers(const QString &answer = QStringLiteral("OK"));

    /// What the boxes have said, which is forgotten then.
    QStringList take() { return std::exchange(texts, {}); }

    QStringList texts;
    QStringList titles;

private:
    void answer(QMessageBox &box);

    QString m_answer;
    QTimer m_timer;
};

/// Calls @p handle once, with the next modal window other than a message box that comes up.
/// A window that does not come within five seconds is a failure of the running test.
void whenModal(std::function<void(QWidget *window)> handle);

/// Gives the file dialog that comes up next a name and accepts it; an empty name cancels.
void answerFileDialog(const QString &path);
