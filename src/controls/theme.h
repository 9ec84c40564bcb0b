#pragma once

class QAbstractItemView;

/// Gives a grid or tree the colours that all of them share: a calm selection on which the text
/// keeps its own colour, and alternating rows that can just be told apart. Follows the palette of
/// the program, light or dark; to be called again when that changes.
void applyGridColours(QAbstractItemView *view);
