#pragma once

#include "platform/RuntimeError.h"

#include <utility>

/// The RuntimeError that @p work raises; one of number 0 when it raises none. Any other exception
/// goes through and fails the test.
template <typename Work>
RuntimeError raised(Work &&work)
{
    try {
        std::forward<Work>(work)();
    } catch (const RuntimeError &error) {
        return error;
    }
    return RuntimeError(0, QStringLiteral("nothing was raised"));
}

/// Its number.
template <typename Work>
int raisedError(Work &&work)
{
    return raised(std::forward<Work>(work)).number;
}
