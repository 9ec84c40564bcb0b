#include "platform/messageBox.h"

#include <cstdio>
#include <utility>

using namespace Qt::StringLiterals;

namespace {

MessagePresenter &presenter()
{
    static MessagePresenter installed;
    return installed;
}

} // namespace

QString defaultMessageTitle()
{
    return u"Orbek SQL Editor"_s;
}

MessageAnswer showMessage(const Message &message)
{
    if (presenter().show)
        return presenter().show(message);
    std::fprintf(stderr, "%s\n", qPrintable(message.text));
    return message.buttons == MessageButtons::YesNo ? MessageAnswer::No : MessageAnswer::Ok;
}

void showMessage(const QString &text)
{
    Message message;
    message.text = text;
    showMessage(message);
}

void beep()
{
    if (presenter().beep)
        presenter().beep();
}

void setMessagePresenter(MessagePresenter newPresenter)
{
    presenter() = std::move(newPresenter);
}
