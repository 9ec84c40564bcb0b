#pragma once

#include <QFrame>
#include <QRect>
#include <QString>

#include <array>

class FramePacer;
class QLabel;
class QPainter;

/// The status bar of an editor window: five text panels side by side, labels named
/// `<objectName>_1` to `<objectName>_5`.
///
/// setPanelText() is made to be called for every row of a long run: labels take the texts at most
/// once a frame and only hold them; the bar paints them.
class StatusPanels : public QFrame
{
    Q_OBJECT
public:
    explicit StatusPanels(const QString &objectName, QWidget *parent = nullptr);

    static constexpr int panelCount = 5;

    /// @param panel  1 to 5; another one is passed over
    void setPanelText(int panel, const QString &text);
    /// The text that was set last, on the screen or not yet. Empty for another panel.
    QString panelText(int panel) const;

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

protected:
    bool event(QEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;
    void paintEvent(QPaintEvent *event) override;
    void changeEvent(QEvent *event) override;

private:
    QRect textRect(const QLabel *panel) const;
    std::array<int, panelCount> usualWidths() const;
    void layOutPanels();
    void showTexts();
    void paintPanel(QPainter &painter, const QLabel &panel) const;

    std::array<QLabel *, panelCount> m_labels{};
    std::array<QString, panelCount> m_texts;
    FramePacer *m_pacer;
};
