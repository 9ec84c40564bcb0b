#include "connection/login.h"

#include <QDir>
#include <QFile>
#include <QRegularExpression>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

constexpr qint64 largestFile = 10'000'000;

bool isAlias(const QString &text)
{
    return !text.isEmpty() && std::none_of(text.begin(), text.end(), [](QChar character) {
        return character.isSpace() || character == u'=' || character == u'"';
    });
}

/// Reads the definitions, `alias, alias = (…)`, line by line.
class DefinitionReader
{
public:
    void readLine(QStringView line)
    {
        static const QRegularExpression definition(uR"(^[^\s()=#"][^()=#"]*=\s*($|[(#]))"_s);
        if (definition.match(line).hasMatch()) {
            m_open = 0;
            if (!m_names.trimmed().endsWith(u','))
                m_names.clear();
        }
        bool quoted = false;
        for (const QChar character : line) {
            if (character == u'#' && !quoted)
                break;
            if (character == u'"')
                quoted = !quoted;
            if (!quoted)
                read(character);
        }
        // What follows the sign on its own line is a setting, such as a file to include.
        if (m_open == 0 && m_names.contains(u'=') && !m_names.trimmed().endsWith(u'='))
            m_names.clear();
        m_names += u'\n';
    }
    QStringList aliases;

private:
    void read(QChar character)
    {
        if (character == u'(') {
            if (m_open++ == 0)
                define();
        } else if (character == u')') {
            m_open = std::max(m_open - 1, 0);
            m_names.clear();
        } else if (m_open == 0) {
            m_names += character;
        }
    }

    /// A parenthesis has opened behind m_names.
    void define()
    {
        const QString before = std::exchange(m_names, {}).trimmed();
        if (!before.endsWith(u'='))
            return;
        for (const QString &part : before.chopped(1).split(u',')) {
            const QString alias = part.trimmed();
            if (isAlias(alias) && !aliases.contains(alias, Qt::CaseInsensitive))
                aliases += alias;
        }
    }

    QString m_names; ///< what stands outside of parentheses since the last definition
    int m_open = 0;  ///< parentheses
};

QStringList aliasesOf(const QString &path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return {};
    return tnsAliases(QString::fromUtf8(file.read(largestFile)));
}

} // namespace

QStringList tnsAliases(QStringView text)
{
    DefinitionReader reader;
    for (const QStringView line : QStringTokenizer(text, u'\n'))
        reader.readLine(line);
    return reader.aliases;
}

QStringList tnsAliases()
{
    QStringList aliases = aliasesOf(QDir::homePath() + u"/.tnsnames.ora"_s);
    QStringList folders{u"/etc"_s};
    if (const QString folder = qEnvironmentVariable("TNS_ADMIN"); !folder.isEmpty())
        folders.prepend(folder);
    if (const QString home = qEnvironmentVariable("ORACLE_HOME"); !home.isEmpty())
        folders.append(home + u"/network/admin"_s);
    for (const QString &folder : std::as_const(folders)) {
        if (const QString path = folder + u"/tnsnames.ora"_s; QFile::exists(path)) {
            aliases += aliasesOf(path);
            break;
        }
    }
    aliases.removeDuplicates();
    return aliases;
}
