#pragma once

#include "dataaccess/odbc/odbcHeaders.h"

/// What the ways to speak with a driver depend on.
struct OdbcAbilities
{
    SQLUINTEGER getDataExtensions = 0; ///< SQL_GD_… flags
    /// False for an engine in which a column's declared type and size limit nothing.
    bool declarationsBindValues = true;
    /// A statement that defines something ends the transaction.
    bool definitionsCommit = false;

    /// MariaDB's driver has ways of its own. It writes output parameters as UTF-8 text, whatever
    /// type they are bound as. It takes a procedure's making for as many statements as it has
    /// semicolons, sends it in one piece nevertheless, and crashes when asked for the results it
    /// did not get: of blocks and calls alone it may be asked for more than one. A whole result it
    /// reads at once.
    bool isMariaDb = false;
    /// Texts that are fetched as narrow ones come in UTF-8. Wide ones, MariaDB's driver ends at the
    /// first zero character, and misreckons their length when it has to cut them.
    bool givesUtf8 = false;

    bool has(SQLUINTEGER flags) const { return (getDataExtensions & flags) == flags; }
};
