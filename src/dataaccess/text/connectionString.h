#pragma once

#include <QList>
#include <QString>
#include <QStringView>

/// A value in braces, so that any character may stand in it.
QString inBraces(QString value);

/// A connection string's items: `name=value` separated by `;`. Names match in any letter case;
/// values in braces may hold semicolons. Of items with the same name the first counts.
class ConnectionString
{
public:
    explicit ConnectionString(const QString &text);

    bool contains(QStringView name) const;
    /// The value, without blanks at its ends; an empty text when there is no such item.
    QString value(QStringView name) const;
    /// The text as it is written, but for the items with that name.
    QString textWithout(QStringView name) const;

private:
    struct Item
    {
        QString name;
        QString value;
        qsizetype begin; ///< of its text
        qsizetype end;   ///< behind its `;`

        bool isNamed(QStringView other) const
        {
            return other.compare(name, Qt::CaseInsensitive) == 0;
        }
    };
    const Item *find(QStringView name) const;

    QString m_text;
    QList<Item> m_items; ///< all of them, in their order
};
