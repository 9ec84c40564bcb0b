#pragma once

#include <chrono>

/// A connection to the server's socket @p path, which is at most a hundred characters long; -1 when
/// nobody listens there.
int connectToServer(const char *path);

enum class ServerAnswer {
    Refusal, ///< nobody listens, or nobody who stays
    Silence, ///< somebody does, but says nothing
    Greeting ///< the server is ready
};

/// What the server says to somebody who comes. It speaks first, which shows that it is at work and
/// not merely there. Uses no memory of the heap.
/// @param longest  to wait for a word
ServerAnswer serverAnswer(const char *path, std::chrono::milliseconds longest);
