#include "sqltext/SyntaxDefinition.h"

#include <QStringList>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

constexpr int dataTypes = 1;
constexpr int keywords = 6;

void fillClass(KeywordTable &table, int wordClass, const QString &words)
{
    const QStringList list = words.split(u',').mid(0, wordsPerClass);
    std::copy(list.begin(), list.end(), table[static_cast<std::size_t>(wordClass)].begin());
}

WordClasses makeSqlWordClasses()
{
    WordClasses classes;
    // The punctuation marks are words like the others: they are written in the keywords' colour.
    fillClass(classes.keywordTable, keywords,
              u"SELECT,FROM,WHERE,HAVING,ORDER,BY,GROUP,BEGIN,END,PROCEDURE,FUNCTION,"
              "PACKAGE,NULL,CREATE,IS,IN,NOT,IF,FOR,LOOP,OR,AND,TYPE,JAVA,JAVA CLASS,"
              "DATABASE,LINK,VIEW,TABLE,SYNONYM,SEQUENCE,MATERIALIZED,INTO,SCHEMA,"
              "ROLLBACK,SEGMENT,TABLESPACE,STORAGE,PCTFREE,PCTUSED,FREELISTS,EXTENT,"
              "FIRST,NEXT,LOGGING,INSERT,PARTITION,REPLACE,THEN,WHILE,DO,INITRANS,"
              "GROUPS,MAXTRANS,PCTINCREASE,MAXEXTENTS,INITEXTENT,MINEXTENTS,NEXT,"
              "INITIAL,FREELIST,BUFFER_POOL,POOLS,OUT,ELSIF,BODY,(,),;,ON,BFILE,AS"_s);
    fillClass(classes.keywordTable, dataTypes, u"VARCHAR2,CHAR,DATE,INTEGER,LONG,REF,CURSOR"_s);
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
