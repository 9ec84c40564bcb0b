#pragma once

#include <QString>

/// What a StatementAdapter may do on the connection that it adapts for. Its statements go to the
/// driver as they stand: they pass no adapter, and no text is taken for a procedure reference.
class StatementSession
{
public:
    virtual ~StatementSession() = default;

    /// Sends @p text and takes in all its results, throwing rows away.
    /// @throws RuntimeError with the driver's text
    virtual void execute(const QString &text) = 0;

    /// The text form of the first column of the first row that @p text returns; an empty text for
    /// null, for no row and for a statement without rows.
    /// @throws RuntimeError with the driver's text
    virtual QString scalar(const QString &text) = 0;
};

/// Rewrites command texts for a server that cannot take them as they are written. Every text that
/// is sent on the connection passes it once, procedure calls in their `{call …}` form included.
class StatementAdapter
{
public:
    virtual ~StatementAdapter() = default;

    /// The text to send for @p commandText; most come back unchanged. May run statements of its
    /// own first. What it throws is the failure of the command.
    virtual QString adapt(const QString &commandText, StatementSession &session) = 0;
};
