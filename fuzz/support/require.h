#pragma once

#include <QString>

/// Stops the fuzzer, which then keeps its input, unless @p holds. @p property says what has to be.
void require(bool holds, const char *property);

/// The same for two texts that have to be equal; both are shown when they are not.
void requireEqual(const QString &found, const QString &expected, const char *property);
