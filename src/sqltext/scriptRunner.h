#pragma once

#include <QString>

#include <functional>
#include <vector>

/// A statement of a script that failed. Lines are the script's, counted from 1.
struct ScriptFailure
{
    int firstLine = 0;
    int lastLine = 0;
    QString description;
};

struct ScriptReport
{
    int statements = 0; ///< that were sent
    std::vector<ScriptFailure> failures;
};

/// Runs a script: the text is cut at every ";", and each piece that holds more than comments,
/// blanks and line ends is sent in a block of its own. What stands behind the last ";" is not run.
///
/// A failure adds a blank, its description and a line end to @p errors, and the next piece runs.
/// @param execute      sends one command text, made of a statement; what it throws is what has
/// failed
/// @param isCancelled  whether the end has been asked for: the statement that has just run has then
///                     failed, for a server may end one without a failure, and no other one runs
ScriptReport runScript(
    const QString &script, QString &errors,
    const std::function<void(const QString &command, QStringView statement)> &execute,
    const std::function<bool()> &isCancelled = [] { return false; });
