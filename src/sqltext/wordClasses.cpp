#include "sqltext/wordClasses.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

constexpr int dataTypes = 1;
constexpr int keywords = 6;

template <std::size_t Count>
void fillClass(KeywordTable &table, int wordClass, const std::array<QString, Count> &words)
{
    static_assert(Count <= wordsPerClass);
    std::copy(words.begin(), words.end(), table[static_cast<std::size_t>(wordClass)].begin());
}

WordClasses makeSqlWordClasses()
{
    WordClasses classes;
    // The punctuation marks are words like the others: they are written in the keywords' colour.
    fillClass(classes.keywordTable, keywords,
              std::to_array<QString>(
                  {u"SELECT"_s,     u"FROM"_s,        u"WHERE"_s,       u"HAVING"_s,
                   u"ORDER"_s,      u"BY"_s,          u"GROUP"_s,       u"BEGIN"_s,
                   u"END"_s,        u"PROCEDURE"_s,   u"FUNCTION"_s,    u"PACKAGE"_s,
                   u"NULL"_s,       u"CREATE"_s,      u"IS"_s,          u"IN"_s,
                   u"NOT"_s,        u"IF"_s,          u"FOR"_s,         u"LOOP"_s,
                   u"OR"_s,         u"AND"_s,         u"TYPE"_s,        u"JAVA"_s,
                   u"JAVA CLASS"_s, u"DATABASE"_s,    u"LINK"_s,        u"VIEW"_s,
                   u"TABLE"_s,      u"SYNONYM"_s,     u"SEQUENCE"_s,    u"MATERIALIZED"_s,
                   u"INTO"_s,       u"SCHEMA"_s,      u"ROLLBACK"_s,    u"SEGMENT"_s,
                   u"TABLESPACE"_s, u"STORAGE"_s,     u"PCTFREE"_s,     u"PCTUSED"_s,
                   u"FREELISTS"_s,  u"EXTENT"_s,      u"FIRST"_s,       u"NEXT"_s,
                   u"LOGGING"_s,    u"INSERT"_s,      u"PARTITION"_s,   u"REPLACE"_s,
                   u"THEN"_s,       u"WHILE"_s,       u"DO"_s,          u"INITRANS"_s,
                   u"GROUPS"_s,     u"MAXTRANS"_s,    u"PCTINCREASE"_s, u"MAXEXTENTS"_s,
                   u"INITEXTENT"_s, u"MINEXTENTS"_s,  u"NEXT"_s,        u"INITIAL"_s,
                   u"FREELIST"_s,   u"BUFFER_POOL"_s, u"POOLS"_s,       u"OUT"_s,
                   u"ELSIF"_s,      u"BODY"_s,        u"("_s,           u")"_s,
                   u";"_s,          u"ON"_s,          u"BFILE"_s,       u"AS"_s}));
    fillClass(classes.keywordTable, dataTypes,
              std::to_array<QString>({u"VARCHAR2"_s, u"CHAR"_s, u"DATE"_s, u"INTEGER"_s, u"LONG"_s,
                                      u"REF"_s, u"CURSOR"_s}));
    classes.classColours = {0x000000, 0xFF0000, 0xFF8C00, 0xD2691E, 0x2E8B57, 0x9932CC, 0x0000FF};
    classes.classStyles = {0, 1, 1, 1, 1, 2, 0};
    return classes;
}

} // namespace

const WordClasses &sqlWordClasses()
{
    static const WordClasses classes = makeSqlWordClasses();
    return classes;
}
