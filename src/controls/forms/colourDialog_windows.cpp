#include "controls/forms/CommonDialog.h"

#include <QCoreApplication>
#include <QWidget>

#include <windows.h>

#include <commdlg.h>

#include <array>

std::optional<bool> askSystemForColour(const QWidget *parent, QColor &colour)
{
    if (QCoreApplication::testAttribute(Qt::AA_DontUseNativeDialogs))
        return std::nullopt;
    static std::array<COLORREF, 16> ownColours{};
    CHOOSECOLORW choice{};
    choice.lStructSize = sizeof choice;
    if (parent != nullptr)
        choice.hwndOwner = reinterpret_cast<HWND>(parent->window()->winId());
    if (colour.isValid())
        choice.rgbResult = RGB(colour.red(), colour.green(), colour.blue());
    choice.lpCustColors = ownColours.data();
    choice.Flags = CC_RGBINIT | CC_ANYCOLOR | CC_FULLOPEN;
    if (!ChooseColorW(&choice))
        return false;
    colour = QColor(GetRValue(choice.rgbResult), GetGValue(choice.rgbResult),
                    GetBValue(choice.rgbResult));
    return true;
}
