#pragma once

#include <QString>

/// Gives a control the name that the program and its tests know it by.
template <typename Control>
Control *named(Control *control, const QString &name)
{
    control->setObjectName(name);
    return control;
}
