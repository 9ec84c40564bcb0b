#pragma once

#include "platform/RecoveryFile.h"

#include <QToolBar>

#include <functional>
#include <memory>
#include <vector>

class QLabel;

/// Offers, above the editor, the texts of windows that ended unexpectedly, one after another.
/// What is neither restored nor discarded is offered again by the program's next start.
class RecoveryBar : public QToolBar
{
    Q_OBJECT
public:
    /// Puts a text into the editor so that it will not be lost again.
    using Restore = std::function<void(const QString &text)>;

    explicit RecoveryBar(QWidget *parent = nullptr);

    /// Shows itself when there is something to offer.
    void offerLostTexts(Restore restore);

private:
    void restoreText();
    void discardText();
    void showOffer();

    Restore m_restore;
    std::vector<std::unique_ptr<LostText>> m_texts; ///< the one offered is the first
    QLabel *m_label;
};
