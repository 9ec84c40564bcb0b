#pragma once

#include <QString>
#include <QWidget>

#include <array>

class QLabel;

/// The status bar of an editor window: five text panels side by side, labels named
/// `<objectName>_1` to `<objectName>_5`.
class StatusPanels : public QWidget
{
    Q_OBJECT
public:
    explicit StatusPanels(const QString &objectName, QWidget *parent = nullptr);

    static constexpr int panelCount = 5;

    /// Gives a panel's label its text. @param panel  1 to 5; another one is passed over
    void setPanelText(int panel, const QString &text);

protected:
    void changeEvent(QEvent *event) override;

private:
    void setWidths();

    std::array<QLabel *, panelCount> m_labels{};
};
