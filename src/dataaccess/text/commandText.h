#pragma once

#include <QString>

/// A command text that is nothing but a procedure reference, such as `dbms_output.disable` or
/// `name(1, 'x')`, as `{call …}`; blanks, line ends and a semicolon around it are dropped. Any
/// other text, single-word statements such as `commit` among them, comes back as it is.
QString asProcedureCall(const QString &commandText);

/// Whether @p text has an ODBC escape (`{call …}`, `{fn …}`, `{d '…'}` and so on) outside literals,
/// quoted names and comments.
bool hasOdbcEscape(const QString &text);
