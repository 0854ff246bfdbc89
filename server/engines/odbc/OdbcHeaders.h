#pragma once

// The system's ODBC headers, which on Windows need the Windows ones before them.
#ifdef _WIN32
#include <windows.h>
#endif

#include <sql.h>
#include <sqlext.h>
#include <sqlucode.h>
