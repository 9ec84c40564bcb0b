#pragma once

#include "dataaccess/Connection.h"

#include <QString>

#include <memory>

class QComboBox;
class QListWidget;

/// Empties the combo box and fills it with the first field of every row of @p query, in the order
/// in which the rows come. Its text stays empty until an entry is picked.
/// @throws RuntimeError 91 without a connection, 94 for a null, otherwise the server's; the combo
///         box is then empty
void fillCombo(const QString &query, QComboBox &combo,
               const std::shared_ptr<Connection> &connection);

/// The same for a list box.
void fillList(const QString &query, QListWidget &list,
              const std::shared_ptr<Connection> &connection);
