// The comment filter on texts of growing size, per byte against itself and against one pass that
// counts line feeds.

#include "sqltext/sqlTexts.h"
#include "support/figures.h"
#include "support/inTurn.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

/// Statements with a comment, a literal and a block comment every few lines, @p megabytes long in
/// UTF-8.
QString script(int megabytes)
{
    const QString piece = u"select customer, quantity\r\n"
                          "  from sales -- of this year\r\n"
                          " where city = 'Le Havre' and remark <> 'none -- yet'\r\n"
                          "   and quantity > 10\r\n"
                          " /* the older ones\r\n"
                          "    -- are elsewhere */\r\n"
                          " order by customer;\r\n"_s;
    const qsizetype length = qsizetype{megabytes} << 20;
    return piece.repeated(length / piece.size() + 1).first(length);
}

} // namespace

int main()
{
    const QString smallest = script(1);
    qsizetype filtered = 0;
    for (const int megabytes : {2, 4, 8}) {
        const QString text = script(megabytes);
        const TwoSides seconds = measureInTurn(
            manyRounds, [&] { filtered = stripComments(smallest).size(); },
            [&] { filtered = stripComments(text).size(); });
        printRatio(u"comment filter on %1 MB / on 1 MB, per byte"_s.arg(megabytes),
                   seconds.ratio() / megabytes, 1.2);
    }
    for (const int megabytes : {1, 2, 4, 8}) {
        const QString text = script(megabytes);
        qsizetype lineFeeds = 0;
        const TwoSides seconds = measureInTurn(
            manyRounds, [&] { lineFeeds = std::count(text.begin(), text.end(), u'\n'); },
            [&] { filtered = stripComments(text).size(); });
        if (lineFeeds == 0 || filtered >= text.size())
            giveUp(u"The filter did nothing."_s);
        printRatio(u"comment filter on %1 MB / counting line feeds"_s.arg(megabytes),
                   seconds.ratio(), 15);
    }
    return 0;
}
