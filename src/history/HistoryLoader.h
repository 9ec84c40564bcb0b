#pragma once

#include "dataaccess/Recordset.h"
#include "platform/ByteBuffer.h"
#include "platform/checkedArithmetic.h"

#include <QByteArrayView>

/// Turns the lines of a history file into rows of an open recordset.
class HistoryLoader
{
public:
    /// Longest text of either field, in UTF-16 units.
    static constexpr int fieldSize = 1000;

    explicit HistoryLoader(Recordset &recordset);

    /// Takes the next line, without its line end.
    /// @throws RuntimeError see loadHistory()
    void takeLine(QByteArrayView line);

private:
    void addContent(QByteArrayView line);
    void addRecord();
    void setTime();
    void clear();

    Recordset &m_recordset;
    ByteBuffer m_content; ///< lines since the last marker, each with its line end
    bool m_contentTooLong = false;
    ByteBuffer m_lastLine;
    Int16 m_lineCount;
    bool m_recordSkipped = false;
};
