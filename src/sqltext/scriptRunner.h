#pragma once

#include <QString>

#include <functional>

/// Runs a script: the text is cut at every ";", and each piece that holds more than comments,
/// blanks and line ends is sent in a block of its own. What stands behind the last ";" is not run.
///
/// A failure adds a blank, its description and a line end to @p errors, and the next piece runs.
/// @param execute  sends one command text; what it throws is what has failed
void runScript(const QString &script, QString &errors,
               const std::function<void(const QString &command)> &execute);
