#pragma once

#include <QColor>
#include <QDialog>
#include <QFont>

class QFontDialog;
class QPushButton;

/// Asks for a font with its effects and for the colour to write in.
class FontDialog : public QDialog
{
    Q_OBJECT
public:
    /// @param color  an invalid colour means that none is chosen
    FontDialog(const QFont &font, const QColor &color, QWidget *parent);

    QFont chosenFont() const;
    /// Invalid when no colour has been chosen.
    QColor chosenColor() const { return m_color; }

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void chooseColor();
    void showColor();

    QFontDialog *m_fonts;
    QPushButton *cmdColor;
    QColor m_color;
};
