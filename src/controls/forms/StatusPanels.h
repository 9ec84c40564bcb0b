#pragma once

#include <QString>
#include <QWidget>

#include <array>

class FramePacer;
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
    /// The same for a text that is soon followed by another, as for every row of a long run: the
    /// label takes the last of them at most once a frame, and with showTexts().
    void setPanelTextSoon(int panel, const QString &text);
    /// Gives the labels now what setPanelTextSoon() has for them.
    void showTexts();

protected:
    void changeEvent(QEvent *event) override;

private:
    void setWidths();
    void takeTexts();

    std::array<QLabel *, panelCount> m_labels{};
    std::array<QString, panelCount> m_texts;
    FramePacer *m_pacer;
};
