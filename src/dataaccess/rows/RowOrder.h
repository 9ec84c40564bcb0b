#pragma once

#include <vector>

class MemoryTable;

/// The positions of @p table's rows, ordered by the values of one field. What looks like nothing
/// (a null, a field never set, an empty text) stands last in either direction, and equal values
/// stay in the order that the table has them in.
///
/// Numbers are compared exactly, whatever their form and however many digits they have, times as
/// points in time, texts by the code points of their characters. Values of different kinds stand
/// in the order: truth values, numbers, times, texts, bytes.
std::vector<int> orderedRows(const MemoryTable &table, int field, bool descending);
