#pragma once

#include <QTest>

/// The rows of a data-driven test: made with the names of its columns, called for every row.
template <typename... Columns>
class DataRows
{
public:
    template <typename... Names>
    explicit DataRows(Names... names)
    {
        (QTest::addColumn<Columns>(names), ...);
    }

    void operator()(const char *name, const Columns &...values) const
    {
        (QTest::newRow(name) << ... << values);
    }
};
