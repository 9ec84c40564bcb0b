#include "controls/FontDialog.h"

#include "controls/enterKey.h"
#include "controls/named.h"

#include <QColorDialog>
#include <QDialogButtonBox>
#include <QFontDialog>
#include <QHBoxLayout>
#include <QPixmap>
#include <QPushButton>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

FontDialog::FontDialog(const QFont &font, const QColor &color, QWidget *parent)
    : QDialog(parent)
    , m_fonts(new QFontDialog(font, this))
    , cmdColor(named(new QPushButton(u"Co&lor..."_s, this), u"cmdColor"_s))
    , m_color(color)
{
    m_fonts->setOptions(QFontDialog::NoButtons | QFontDialog::DontUseNativeDialog);
    m_fonts->setWindowFlags(Qt::Widget);
    auto *buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, this);

    cmdColor->setAutoDefault(false);
    buttons->button(QDialogButtonBox::Ok)->setDefault(true);

    auto *bottom = new QHBoxLayout;
    bottom->setContentsMargins(m_fonts->layout()->contentsMargins());
    bottom->addWidget(cmdColor);
    bottom->addWidget(buttons, 1);
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins({});
    layout->addWidget(m_fonts, 1);
    layout->addLayout(bottom);

    connect(cmdColor, &QPushButton::clicked, this, &FontDialog::chooseColor);
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    connect(m_fonts, &QDialog::rejected, this, &QDialog::reject);
    m_fonts->installEventFilter(this);
    showColor();
}

QFont FontDialog::chosenFont() const
{
    return m_fonts->currentFont();
}

/// Enter among the fonts belongs to the dialog that they stand in.
bool FontDialog::eventFilter(QObject *watched, QEvent *event)
{
    if (watched != m_fonts || !isEnterPress(*event))
        return QDialog::eventFilter(watched, event);
    accept();
    return true;
}

void FontDialog::chooseColor()
{
    const QColor color =
        QColorDialog::getColor(m_color.isValid() ? m_color : QColor(Qt::black), this);
    if (color.isValid())
        m_color = color;
    showColor();
}

void FontDialog::showColor()
{
    if (!m_color.isValid())
        return;
    QPixmap swatch(cmdColor->iconSize());
    swatch.fill(m_color);
    cmdColor->setIcon(swatch);
}
