#pragma once

#include "platform/RuntimeError.h"
#include "platform/longWait.h"
#include "platform/process.h"

#include <QString>

#include <exception>
#include <functional>
#include <utility>

/// The ways in which a command handles what goes wrong below it. Qt's event loop lets no exception
/// through, so every handler that may fail runs inside one of these.

/// Shows a text and waits until it has been read. The program leads it to its windows; without them
/// it goes to the standard error stream.
void showMessage(const QString &text);
/// An empty function restores what is there without windows.
void setMessagePresenter(std::function<void(const QString &text)> presenter);

/// What a caught exception tells the user: a RuntimeError's description, or the text that fits an
/// exception of the language itself (memory ran out, for example).
RuntimeError currentRuntimeError() noexcept;

/// Runs @p work, a command; a failure is shown as its description alone and ends it. While another
/// one waits for the server nothing is done.
/// @returns false when there was a failure
template <typename Work>
bool reportErrors(Work &&work)
{
    if (isWaiting())
        return true;
    try {
        std::forward<Work>(work)();
        return true;
    } catch (...) {
        showMessage(currentRuntimeError().description);
        return false;
    }
}

/// Runs @p work and passes over a failure in silence.
/// @returns whether the work went through
template <typename Work>
bool ignoreErrors(Work &&work) noexcept
{
    try {
        std::forward<Work>(work)();
        return true;
    } catch (...) { // a step that fails is skipped, by its caller's design
        return false;
    }
}

/// Runs @p work; a failure is shown and then ends the program.
template <typename Work>
void endOnError(Work &&work)
{
    if (!reportErrors(std::forward<Work>(work)))
        endProgram(1);
}
