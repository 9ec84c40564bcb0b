#pragma once

#include <QString>

/// Where the sandbox lives: one folder that nobody but its owner can enter.
class SandboxFolder
{
public:
    /// The user's sandbox: the folder that the environment variable QUERNA_SANDBOX_DIR names, or
    /// else "Orbek Oracle/sandbox" in the user's data folder.
    static SandboxFolder ofUser();

    /// @param path  absolute and without links: the server is known by the name of its folder
    explicit SandboxFolder(const QString &path)
        : m_path(path)
    {
    }

    /// Makes the folder, with the one for temporary files, when there is none, and shuts others
    /// out of it.
    /// @throws RuntimeError 75 when that fails
    void make() const;

    QString path() const { return m_path; }
    /// The path of a file in the folder.
    QString file(const QString &name) const { return m_path + QLatin1Char('/') + name; }
    /// The server's data directory; it exists only when it is complete.
    QString dataPath() const { return file(QStringLiteral("data")); }
    /// For the server's temporary files.
    QString temporaryPath() const { return file(QStringLiteral("tmp")); }

private:
    QString m_path;
};
