#pragma once

#include <QObject>

class QWidget;

/// Watches for a widget's next painting: what a user waits for.
class PaintWatch : public QObject
{
    Q_OBJECT
public:
    explicit PaintWatch(QWidget *widget);

    /// Lets events run until the widget has been painted since the watch began or was last waited
    /// for.
    void wait();

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    bool m_painted = false;
};
