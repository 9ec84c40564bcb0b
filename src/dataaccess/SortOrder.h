#pragma once

#include "dataaccess/FieldInfo.h"
#include "dataaccess/Value.h"

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
    /// Whether a row whose key values are @p a comes before one with @p b.
    bool before(const std::vector<Value> &a, const std::vector<Value> &b) const;

private:
    std::vector<Key> m_keys;
};
