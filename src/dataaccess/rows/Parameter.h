#pragma once

#include "dataaccess/rows/Value.h"
#include "dataaccess/rows/dataAccessTypes.h"

#include <QString>

/// One argument of a command. Output parameters are all that there are: what goes in stands in the
/// command's text.
struct Parameter
{
    QString name;
    DataTypeEnum type = adVarChar;
    int size = 0; ///< longest text in UTF-16 units; 0 for types of fixed size
    Value value;  ///< what came out; empty before the first execution
};
