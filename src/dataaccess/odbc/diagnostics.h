#pragma once

#include "platform/RuntimeError.h"

class OdbcHandle;

/// The failure that @p handle reports: the texts of all its diagnostic records, joined by line
/// ends, as the driver wrote them. Its number is the first record's native error, or -2147467259
/// ("unspecified error") when that is 0.
RuntimeError odbcError(const OdbcHandle &handle);
