#include "controls/forms/CommonDialog.h"

std::optional<bool> askSystemForColour(const QWidget *, QColor &)
{
    return std::nullopt; // the toolkit asks the desktop
}
