#include "editor/caption.h"

#include "platform/textForms.h"

using namespace Qt::StringLiterals;

namespace {

constexpr int shownCharacters = 30;

} // namespace

QString captionAtLoad(const QString &userName, const QString &tnsName)
{
    return userName.toUpper() + u'@' + tnsName.toUpper() + u" - SQL Editor"_s;
}

QString captionWithText(const QString &userName, const QString &tnsName, const QString &text)
{
    return captionAtLoad(userName, tnsName) + u": "_s + trimBlanks(text).left(shownCharacters) +
           u"..."_s;
}

QString titleOf(QString caption)
{
    for (QChar &character : caption) {
        if (character.isSpace() || character.category() == QChar::Other_Control)
            character = u' ';
    }
    return caption.replace(u"[*]"_s, u"[*][*]"_s);
}
