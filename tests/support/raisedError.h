#pragma once

#include "platform/RuntimeError.h"

#include <utility>

/// The number of the RuntimeError that @p work raises; 0 when it raises none. Any other exception
/// goes through and fails the test.
template <typename Work>
int raisedError(Work &&work)
{
    try {
        std::forward<Work>(work)();
    } catch (const RuntimeError &error) {
        return error.number;
    }
    return 0;
}
