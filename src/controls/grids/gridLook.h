#pragma once

class QAbstractItemView;

/// Gives a grid or tree the looks and habits that all of them share: nothing is edited in place,
/// columns scroll by the pixel, rows alternate so that they can just be told apart, and a calm
/// selection leaves the text its own colour. The colours follow the program's palette, light or
/// dark, also when it changes.
void applyGridLook(QAbstractItemView *view);
