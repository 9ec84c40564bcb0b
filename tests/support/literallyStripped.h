#pragma once

#include <QString>

/// A second writing of what stripComments() promises, step by step over lists of positions and
/// with no regard to time, to compare the real one with.
QString literallyStripped(const QString &text);
