#pragma once

// ODBC's headers, in the one way that works everywhere: on Windows they want that system's own
// header first, and each function keeps the name that it is called by here.

#define SQL_NOUNICODEMAP
#ifdef _WIN32
#ifndef WIN32_LEAN_AND_MEAN
#define WIN32_LEAN_AND_MEAN
#endif
#ifndef NOMINMAX
#define NOMINMAX
#endif
#include <windows.h>
#endif

#include <sql.h>
#include <sqlext.h>
