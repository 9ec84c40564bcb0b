#pragma once

#include <QString>

/// Pages of the user group.

inline QString userGroupJoinPage()
{
    return QStringLiteral("https://orbek-users.example/join");
}

inline QString userGroupMessagesPage()
{
    return QStringLiteral("https://orbek-users.example/messages");
}
