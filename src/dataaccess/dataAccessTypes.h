#pragma once

/// Codes of the classic data-access objects (ADO), with their names and numbers.

enum ObjectStateEnum { adStateClosed = 0, adStateOpen = 1 };

enum CursorLocationEnum { adUseServer = 2, adUseClient = 3 };

enum CursorTypeEnum {
    adOpenUnspecified = -1,
    adOpenForwardOnly = 0,
    adOpenKeyset = 1,
    adOpenDynamic = 2,
    adOpenStatic = 3
};

enum LockTypeEnum {
    adLockUnspecified = -1,
    adLockReadOnly = 1,
    adLockPessimistic = 2,
    adLockOptimistic = 3,
    adLockBatchOptimistic = 4
};

enum CommandTypeEnum {
    adCmdUnspecified = -1,
    adCmdText = 1,
    adCmdTable = 2,
    adCmdStoredProc = 4,
    adCmdUnknown = 8
};

enum ParameterDirectionEnum {
    adParamInput = 1,
    adParamOutput = 2,
    adParamInputOutput = 3,
    adParamReturnValue = 4
};

enum DataTypeEnum {
    adEmpty = 0,
    adSmallInt = 2,
    adInteger = 3,
    adSingle = 4,
    adDouble = 5,
    adDate = 7,
    adBoolean = 11,
    adVariant = 12,
    adDecimal = 14,
    adBigInt = 20,
    adGUID = 72,
    adBinary = 128,
    adChar = 129,
    adWChar = 130,
    adNumeric = 131,
    adDBDate = 133,
    adDBTime = 134,
    adDBTimeStamp = 135,
    adVarNumeric = 139,
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
