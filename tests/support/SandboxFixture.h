#pragma once

#include <QString>

#include <memory>

class Connection;

/// The sandbox for tests. All tests of one build tree share a server in the build folder, so its
/// database is made once; a test that changes what others read uses tables of its own.
namespace SandboxFixture {

/// The name of the environment variable that says where the sandbox lives.
inline constexpr char folderVariable[] = "QUERNA_SANDBOX_DIR";

/// Has the sandbox live in the build folder, in this process and those that it starts.
void useSharedFolder();

/// A connection string; in the login dialog's words, with every item ended by a semicolon.
QString connectionString(const QString &user = QStringLiteral("scott"),
                         const QString &password = QStringLiteral("tiger"));

/// A new connection to the sandbox that the environment names.
std::shared_ptr<Connection> logOn(const QString &user = QStringLiteral("scott"),
                                  const QString &password = QStringLiteral("tiger"));

/// The same to the shared sandbox, no transaction begun.
std::shared_ptr<Connection> open(const QString &user = QStringLiteral("scott"),
                                 const QString &password = QStringLiteral("tiger"));

/// The text form of the first field of the first row that @p query returns; "(none)" without a
/// row, "(null)" for null.
QString scalar(const std::shared_ptr<Connection> &connection, const QString &query);

/// All rows, fields separated by `|`, rows by line feeds; null as "(null)".
QString table(const std::shared_ptr<Connection> &connection, const QString &query);

/// Whether nothing of the sandbox that the environment names is running any more, so that its
/// folder can go.
bool hasEnded();

} // namespace SandboxFixture
