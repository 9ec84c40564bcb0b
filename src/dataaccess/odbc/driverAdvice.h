#pragma once

#include <QString>

/// How a driver that is missing is installed on this system, in one sentence.
QString oracleDriverAdvice();
QString mariaDbDriverAdvice();
