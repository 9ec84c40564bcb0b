#include "dataaccess/odbc/OdbcCursor.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

/// Memory of a block. Fewer rows are fetched at a time rather than more than this be taken.
constexpr size_t blockBudget = size_t{4} << 20;
/// Room for values whose size the driver does not know: most are short.
constexpr size_t unknownSizeBytes = 4096;
constexpr size_t smallestWidth = 64;
/// The size that some drivers give every expression.
constexpr size_t guessedTextBytes = 255 * sizeof(SQLWCHAR);

/// Room for a value and one character more, which shows that it was not cut.
size_t wantedWidth(const OdbcColumn &column)
{
    if (!column.hasVariableSize())
        return column.expectedBytes;
    const size_t bytes = column.expectedBytes > 0 ? column.expectedBytes : unknownSizeBytes;
    return bytes + column.terminatorBytes() + std::max<size_t>(column.terminatorBytes(), 1);
}

bool hasFreeSize(const OdbcColumn &column)
{
    return column.form == ColumnForm::Text || column.form == ColumnForm::Utf8Text ||
           column.form == ColumnForm::Binary || column.form == ColumnForm::Anything;
}

/// Whether values may well be longer than the driver says.
bool hasDoubtfulSize(const OdbcColumn &column, const OdbcAbilities &abilities)
{
    if (!hasFreeSize(column))
        return false;
    if (column.expectedBytes == 0 || abilities.isSqlite)
        return true;
    if (column.isTableColumn)
        return false;
    return !abilities.has(SQL_GD_BLOCK) || column.expectedBytes == guessedTextBytes;
}

} // namespace

OdbcCursor::OdbcCursor(const OdbcAbilities &abilities, OdbcHandle statement, int rowsPerBlock)
    : m_statement(std::move(statement))
    , m_mayFailLater(abilities.isMariaDb && !m_statement.hasOneResult())
{
    for (OdbcColumn &column : describeColumns(m_statement, abilities)) {
        m_fields.push_back(column.field);
        m_columns.emplace_back(std::move(column));
    }
    planReading(abilities, rowsPerBlock);
    bind();
    fetchBlock();
}

void OdbcCursor::planReading(const OdbcAbilities &abilities, int rowsPerBlock)
{
    m_rereadsBound = abilities.has(SQL_GD_BOUND);
    m_rereadsInBlock = abilities.has(SQL_GD_BOUND | SQL_GD_BLOCK);
    bool isOneRow = false;
    bool isAfterUnbound = false;
    // No buffer may take more than its share of a block of one row.
    const size_t largestWidth = std::max(smallestWidth, blockBudget / (m_columns.size() + 1));
    for (ColumnBuffer &buffer : m_columns) {
        const OdbcColumn &column = buffer.column();
        const bool isDoubtful = hasDoubtfulSize(column, abilities);
        buffer.setBound(m_rereadsBound || !(isDoubtful || isAfterUnbound));
        isAfterUnbound |= !buffer.isBound() && !abilities.has(SQL_GD_ANY_COLUMN);
        const size_t width = wantedWidth(column);
        const bool mayBeCut = hasFreeSize(column) && m_rereadsBound;
        buffer.setWidth(mayBeCut ? std::min(width, largestWidth) : width);
        isOneRow |= isDoubtful || !buffer.isBound() || buffer.width() < width;
    }
    size_t rowBytes = 1;
    for (const ColumnBuffer &buffer : m_columns)
        rowBytes += buffer.isBound() ? buffer.blockBytes(1) : 0;
    const size_t affordable = std::max<size_t>(1, blockBudget / rowBytes);
    m_rowsPerBlock = isOneRow ? 1 : std::min(static_cast<size_t>(rowsPerBlock), affordable);
}

void OdbcCursor::bind()
{
    const auto setAttribute = [this](SQLINTEGER attribute, SQLPOINTER value) {
        return SQLSetStmtAttr(m_statement.get(), attribute, value, 0);
    };
    if (m_rowsPerBlock > 1) {
        const SQLRETURN code =
            setAttribute(SQL_ATTR_ROW_ARRAY_SIZE, reinterpret_cast<SQLPOINTER>(m_rowsPerBlock));
        SQLULEN granted = m_rowsPerBlock;
        SQLGetStmtAttr(m_statement.get(), SQL_ATTR_ROW_ARRAY_SIZE, &granted, 0, nullptr);
        m_rowsPerBlock = SQL_SUCCEEDED(code) ? std::clamp<SQLULEN>(granted, 1, m_rowsPerBlock) : 1;
    }
    m_rowStates.resize(m_rowsPerBlock, SQL_ROW_SUCCESS);
    checkOdbc(setAttribute(SQL_ATTR_ROWS_FETCHED_PTR, &m_fetched), m_statement);
    checkOdbc(setAttribute(SQL_ATTR_ROW_STATUS_PTR, m_rowStates.data()), m_statement);

    size_t bytes = 0;
    for (const ColumnBuffer &buffer : m_columns)
        bytes += buffer.isBound() ? buffer.blockBytes(m_rowsPerBlock) : 0;
    m_memory = std::make_unique_for_overwrite<char[]>(bytes);
    char *memory = m_memory.get();
    for (size_t i = 0; i < m_columns.size(); ++i) {
        if (!m_columns[i].isBound())
            continue;
        m_columns[i].bind(m_statement, static_cast<SQLUSMALLINT>(i + 1), memory, m_rowsPerBlock);
        memory += m_columns[i].blockBytes(m_rowsPerBlock);
    }
}

void OdbcCursor::end()
{
    m_row = 0;
    m_fetched = 0;
}

void OdbcCursor::fetchBlock()
{
    end();
    for (ColumnBuffer &buffer : m_columns)
        buffer.prepareFetch(m_rowsPerBlock);
    if (checkLongCall(m_statement, [&] { return SQLFetch(m_statement.get()); }) == SQL_NO_DATA) {
        end();
        takeRemainingResults(m_statement);
        return;
    }
    m_fetched = std::clamp<SQLULEN>(m_fetched, 1, m_rowsPerBlock);
    arriveAtRow();
}

void OdbcCursor::next()
{
    ++m_row;
    try {
        if (m_row < m_fetched)
            arriveAtRow();
        else
            fetchBlock();
    } catch (...) {
        // What the driver stored before it failed is not to be relied on, and a value that was read
        // in part would go on in its middle.
        end();
        throw;
    }
}

void OdbcCursor::arriveAtRow()
{
    m_wholeValues.clear();
    m_isRowInBuffers = false;
    if (m_rowStates[m_row] == SQL_ROW_ERROR)
        throw odbcError(m_statement);
    if (m_rowsPerBlock > 1)
        return;
    // In ascending order and before anything else is done with the row: more than that is not to
    // be expected of every driver.
    for (size_t i = 0; i < m_columns.size(); ++i) {
        if (!m_columns[i].isBound() || m_columns[i].isCut(m_row))
            wholeValue(i);
    }
    m_isRowInBuffers = m_wholeValues.empty();
}

const OdbcCursor::WholeValue &OdbcCursor::wholeValue(size_t column) const
{
    const auto found = std::find_if(m_wholeValues.begin(), m_wholeValues.end(),
                                    [column](const WholeValue &v) { return v.column == column; });
    if (found != m_wholeValues.end())
        return *found;
    const ColumnBuffer &buffer = m_columns[column];
    const bool isInBlock = m_rowsPerBlock > 1;
    if (buffer.isBound() && !(isInBlock ? m_rereadsInBlock : m_rereadsBound))
        raiseCutValue(column);
    if (isInBlock) {
        checkOdbc(SQLSetPos(m_statement.get(), m_row + 1, SQL_POSITION, SQL_LOCK_NO_CHANGE),
                  m_statement);
    }
    const SQLLEN length = buffer.isBound() ? buffer.indicator(m_row) : SQL_NO_TOTAL;
    auto bytes =
        readWholeValue(m_statement, static_cast<SQLUSMALLINT>(column + 1), buffer.column(), length);
    // Some drivers promise that they can go back to a row of a block and then give another row's
    // value.
    if (isInBlock && !(bytes && buffer.isContinuedBy(m_row, *bytes)))
        raiseCutValue(column);
    m_wholeValues.push_back({column, std::move(bytes)});
    return m_wholeValues.back();
}

void OdbcCursor::raiseCutValue(size_t column) const
{
    throw RuntimeError(
        ErrorNumber::ProviderFailed,
        u"A value of column \"%1\" is longer than the driver had said, and the driver "
        "does not give the rest."_s.arg(m_fields[column].name));
}

CellView OdbcCursor::cell(size_t column) const
{
    const ColumnBuffer &buffer = m_columns[column];
    if (m_isRowInBuffers || (buffer.isBound() && !buffer.isCut(m_row)))
        return buffer.cell(m_row);
    const WholeValue &whole = wholeValue(column);
    if (!whole.bytes)
        return {true, nullptr, 0};
    return {false, whole.bytes->constData(), static_cast<size_t>(whole.bytes->size())};
}

Value OdbcCursor::value(int field) const
{
    const auto column = static_cast<size_t>(field);
    return toValue(m_columns[column].column().form, cell(column));
}

void OdbcCursor::pack(RowWriter &row, NullForm nulls) const
{
    for (size_t i = 0; i < m_columns.size(); ++i)
        packCell(m_columns[i].column().form, cell(i), nulls, row);
}
