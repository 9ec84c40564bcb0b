#pragma once

#include <QList>
#include <QString>
#include <QStringView>

/// A connection string's items: `name=value` separated by `;`. Names match in any letter case;
/// values in braces may hold semicolons. Of items with the same name the first counts.
class ConnectionString
{
public:
    explicit ConnectionString(const QString &text);

    bool contains(QStringView name) const;
    /// The value, without blanks at its ends; an empty text when there is no such item.
    QString value(QStringView name) const;

private:
    struct Item
    {
        QString name;
        QString value;
    };
    const Item *find(QStringView name) const;

    QList<Item> m_items;
};
