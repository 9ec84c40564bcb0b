#pragma once

#include "dataaccess/rows/dataAccessTypes.h"

#include <QString>

/// A column of a recordset.
struct FieldInfo
{
    QString name;
    DataTypeEnum type = adVariant;
    int definedSize = 0; ///< longest text in UTF-16 units; 0 for no limit
};
