#pragma once

#include "dataaccess/rows/Value.h"

#include <QString>

/// Codes of the classic data-access objects (ADO), with their names and numbers.

enum ObjectStateEnum { adStateClosed = 0, adStateOpen = 1 };

enum CursorLocationEnum { adUseServer = 2, adUseClient = 3 };

enum DataTypeEnum {
    adSmallInt = 2,
    adInteger = 3,
    adSingle = 4,
    adDouble = 5,
    adBoolean = 11,
    adVariant = 12,
    adBigInt = 20,
    adGUID = 72,
    adBinary = 128,
    adChar = 129,
    adWChar = 130,
    adNumeric = 131,
    adDBDate = 133,
    adDBTime = 134,
    adDBTimeStamp = 135,
    adVarChar = 200,
    adLongVarChar = 201,
    adVarWChar = 202,
    adLongVarWChar = 203,
    adVarBinary = 204,
    adLongVarBinary = 205
};

constexpr bool isCharacterType(DataTypeEnum type)
{
    return type == adChar || type == adWChar || (type >= adVarChar && type <= adLongVarWChar);
}

/// A column of a recordset.
struct FieldInfo
{
    QString name;
    DataTypeEnum type = adVariant;
    int definedSize = 0; ///< longest text in UTF-16 units; 0 for no limit
};

/// One argument of a command. Output parameters are all that there are: what goes in stands in the
/// command's text.
struct Parameter
{
    QString name;
    DataTypeEnum type = adVarChar;
    int size = 0; ///< longest text in UTF-16 units; 0 for types of fixed size
    Value value;  ///< what came out; empty before the first execution
};
