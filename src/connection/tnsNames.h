#pragma once

#include <QString>
#include <QStringList>
#include <QStringView>

/// The names that databases have in Oracle's network configuration, `tnsnames.ora`.

/// The aliases that such a file's text defines, in its order, each once. A definition that is not
/// closed ends where another one begins at the start of a line.
QStringList tnsAliases(QStringView text);

/// The aliases of this user and this machine: those of `~/.tnsnames.ora` and of the first
/// tnsnames.ora in the folder that TNS_ADMIN names, in /etc and in $ORACLE_HOME/network/admin.
/// Files that cannot be read have none.
QStringList tnsAliases();
