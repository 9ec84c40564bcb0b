#pragma once

#include <QString>

/// A second writing of what textToInteger() promises, by patterns and with no regard to time, to
/// compare the real one with. @throws RuntimeError 13, 6
qint32 literalInteger(const QString &text);
