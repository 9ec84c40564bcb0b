#pragma once

#include <poll.h>
#include <unistd.h>

/// A file that this process leaves open to every program that it starts.
class LooseEnd
{
public:
    LooseEnd() { m_isOpen = ::pipe(m_ends) == 0; }
    ~LooseEnd() { ::close(m_ends[0]); }
    LooseEnd(const LooseEnd &) = delete;
    LooseEnd &operator=(const LooseEnd &) = delete;

    /// Closes it, and says whether nobody else has it; to be asked once.
    bool isOursAlone()
    {
        ::close(m_ends[1]);
        pollfd end = {m_ends[0], POLLIN, 0};
        return m_isOpen && ::poll(&end, 1, 0) == 1 && (end.revents & POLLHUP) != 0;
    }

private:
    bool m_isOpen = false;
    int m_ends[2] = {-1, -1};
};
