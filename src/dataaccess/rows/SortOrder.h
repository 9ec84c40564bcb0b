#pragma once

#include "dataaccess/rows/FieldInfo.h"

#include <vector>

/// An order of rows by the values of some fields, read from `FIELD [ASC|DESC], …`. Names may stand
/// in brackets or double quotes.
class SortOrder
{
public:
    struct Key
    {
        int field;
        bool descending;
    };

    SortOrder() = default;
    /// @throws RuntimeError 3265 for an unknown field, 3001 for a text of another form
    SortOrder(const QString &text, const std::vector<FieldInfo> &fields);

    bool isEmpty() const { return m_keys.empty(); }
    const std::vector<Key> &keys() const { return m_keys; }
    /// Whether a row comes before another. @p a, @p b  their packed cells of the keys' fields
    bool before(const char *const *a, const char *const *b) const;

private:
    std::vector<Key> m_keys;
};
