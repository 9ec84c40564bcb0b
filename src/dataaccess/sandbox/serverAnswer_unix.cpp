#include "dataaccess/sandbox/serverAnswer.h"

#include <cstring>

#include <poll.h>
#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

int connectToServer(const char *path)
{
    sockaddr_un address = {};
    address.sun_family = AF_UNIX;
    std::strncpy(address.sun_path, path, sizeof address.sun_path - 1);
    const int link = ::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0);
    if (::connect(link, reinterpret_cast<const sockaddr *>(&address), sizeof address) == 0)
        return link;
    ::close(link);
    return -1;
}

ServerAnswer serverAnswer(const char *path, std::chrono::milliseconds longest)
{
    const int link = connectToServer(path);
    if (link < 0)
        return ServerAnswer::Refusal;
    pollfd wait = {link, POLLIN, 0};
    char first = 0;
    ServerAnswer answer = ServerAnswer::Silence;
    if (::poll(&wait, 1, static_cast<int>(longest.count())) > 0)
        answer = ::read(link, &first, 1) == 1 ? ServerAnswer::Greeting : ServerAnswer::Refusal;
    ::close(link);
    return answer;
}
