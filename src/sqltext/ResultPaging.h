#pragma once

#include "dataaccess/Recordset.h"

#include <QString>

#include <functional>
#include <memory>

class Connection;

/// Brings a query's rows into the result that the grid shows: a first set when the query is opened,
/// further sets or all the rest when asked for.
///
/// The rest is fetched with the user interface running between the rows. Whatever happens there
/// (another Run, a closed connection, the end of the window) ends the fetching, not the program;
/// so the object is held by a shared pointer.
class ResultPaging : public std::enable_shared_from_this<ResultPaging>
{
public:
    /// Rows in a set.
    static constexpr int setSize = 25;

    /// @param tell  called whenever rows have arrived, or none any more, for every row of a long
    ///              run too; an empty function for nobody
    void setRowsArrived(std::function<void()> tell) { m_rowsArrived = std::move(tell); }
    /// @param yield  called behind every row that retrieveAll() brings
    void setYield(std::function<void()> yield) { m_yield = std::move(yield); }

    /// The recordset that the next query fills, set up but not opened; nothing is in it yet, and a
    /// statement that is no query leaves it so.
    void setResult(std::shared_ptr<Recordset> result);
    std::shared_ptr<Recordset> result() const { return m_result; }

    /// Opens @p sql on @p connection and copies the first set into the result(), which has to be
    /// set; a query without rows, and a statement that is no query, leave the result closed and
    /// without columns. Line ends in @p sql become line feeds. A text of blanks does nothing.
    /// @throws RuntimeError the server's
    void openResult(QString &sql, const std::shared_ptr<Connection> &connection);

    /// Copies the next set.
    /// @throws RuntimeError 91 before the first query, 3704 when it was none or could not be
    /// opened,
    ///         or its connection is closed, otherwise the server's
    void retrieveNext();
    /// Copies all that is left, or as much as arrives until stop().
    /// @throws RuntimeError the server's; the rows before the failure stay
    void retrieveAll();
    void stop() { m_fetchingAll = false; }

    /// Rows copied into the result().
    qint32 recordsFetched() const { return m_recordsFetched; }
    /// "Records Retrieved: " and their number.
    QString retrievedText() const;

    /// Whether what was opened last gives rows, even if none.
    bool isQuery() const { return m_source && m_source->State() == adStateOpen; }
    /// Whether rows for the result() wait on the server.
    bool hasMore() const
    {
        return isQuery() && m_result->State() == adStateOpen && !m_source->Eof();
    }
    /// How many rows there are and whether more wait, in words; an empty text while no query is
    /// open.
    QString rowsText() const;

    /// Gives @p result the columns of @p source, names made unique, and opens it.
    static void buildResultFields(const Recordset &source, Recordset &result);

private:
    void fetchRows(Recordset &source, Recordset &result, int count);
    void copyRow(Recordset &source, Recordset &result);
    void tellRows() const;

    std::shared_ptr<Recordset> m_source;
    std::shared_ptr<Recordset> m_result;
    std::function<void()> m_rowsArrived;
    std::function<void()> m_yield;
    qint32 m_recordsFetched = 0;
    bool m_fetchingAll = false;
};
