#pragma once

#include <QFrame>
#include <QString>

class QLabel;

/// The status bar of an editor window: five text panels side by side, labels named
/// `<objectName>_1` to `<objectName>_5`.
///
/// setPanelText() is made to be called for every row of a long run: the label's text is always the
/// latest one, but it is painted at most once a frame.
class StatusPanels : public QFrame
{
    Q_OBJECT
public:
    explicit StatusPanels(const QString &objectName, QWidget *parent = nullptr);

    /// @param panel  1 to 5
    void setPanelText(int panel, const QString &text);
    QString panelText(int panel) const;
};
