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
/// The labels only hold the texts, so that a new one asks nobody for room; the bar paints them.
class StatusPanels : public QFrame
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
    void takeTexts();
    void paintPanel(QPainter &painter, const QLabel &panel) const;

    std::array<QLabel *, panelCount> m_labels{};
    std::array<QString, panelCount> m_texts;
    FramePacer *m_pacer;
};
