#pragma once

#include "platform/ByteBuffer.h"
#include "platform/RuntimeError.h"

#include <QByteArray>
#include <QByteArrayView>
#include <QFile>
#include <QString>

#include <optional>

/// Files and folders. First, what the system does with them: how it fails, whom it lets open them,
/// what it has written.

/// What a file is opened for.
enum class FileUse { Read, Write };

/// The run-time error that an operating system's failure with a file amounts to:
/// 53 no such file, 76 no such folder, 75 a file that may not be written (or is a folder), 70 one
/// that may not be read or is locked, 61 no room, 7 no memory, 57 a failing device.
/// @param osError  the value of errno after the failed operation, 0 when it was not the system
///                 that refused
RuntimeError fileError(int osError, const QString &path, FileUse use);

/// The same for the operation on @p file that has just failed; errno has to be as that left it.
RuntimeError fileError(const QFileDevice &file, FileUse use);

/// Opening a pipe would wait for somebody at its other end, and a device may never end.
/// @throws RuntimeError 75 when @p path is there and is neither a file nor a folder; it says so
void requireOrdinaryFile(const QString &path);

/// Permissions to make a file with that its owner alone can open. On Windows the user's folders are
/// so anyway.
inline constexpr QFile::Permissions ownerFile = QFile::ReadOwner | QFile::WriteOwner;

/// Takes from everybody else what they may do with a file or a folder. @returns whether that is so
bool shutToOthers(const QString &path);

/// Makes a folder that its owner alone can open, below others that may be missing too, or shuts
/// the one that is there. @returns whether it is there and shut
bool makeOwnerFolder(const QString &path);

/// Waits until the disk has what was written to an unbuffered file.
/// @returns whether it has; errno says why not
bool flushToDisk(QFile &file);

/// Reads an ordinary file, as a whole or line by line, a block of it at a time.
class FileReader
{
public:
    /// @throws RuntimeError of fileError(), as do the others
    explicit FileReader(const QString &path);

    /// Everything, also of a file that does not know its size.
    /// @throws RuntimeError 7 when it is more than 1 GB
    QByteArray readAll();

    /// The next line, without its line feed and the carriage return before that; nothing at the
    /// end of the file. It is valid until the next one is read.
    std::optional<QByteArrayView> nextLine();

private:
    /// Reads the next block. @returns whether there is one
    bool fill();
    /// What has been read and not been given yet, up to the next line feed.
    QByteArrayView takePiece(bool &endsLine);

    QFile m_file;
    QByteArray m_block;
    ByteBuffer m_line; ///< one that lies in more than one block
    qsizetype m_position = 0;
    qsizetype m_filled = 0;
};

/// Writes a file from its front or on from its end. Every write and the close are checked, so a
/// full device is told of. What was written before a failure stays in the file.
class FileWriter
{
public:
    enum class Mode { Replace, Append };

    /// Opens the file, creating it if it is missing, with @p ofNew as its permissions if given.
    /// @throws RuntimeError of fileError(), as do the others
    FileWriter(const QString &path, Mode mode, QFile::Permissions ofNew = {});

    void write(QByteArrayView bytes);
    /// Writes what is left. Without this call it is written in the end all the same, but what goes
    /// wrong then stays unknown.
    void close();

private:
    QFile m_file;
};

/// Gives @p path new contents: with a new file, which takes its place when all of it has reached
/// the disk. Whatever goes wrong before, the file that was there stays whole.
///
/// Where its folder lets no file take its place, or the file has further names (hard links), it is
/// written in place. The room that it needs is taken first, and what it held is put back when
/// something goes wrong later. A device or a pipe is written to.
/// @throws RuntimeError of fileError(); its text says so if the file lost what it held
void replaceFile(const QString &path, QByteArrayView contents);

/// Text as the editor keeps it, and the contents of files in whatever form somebody saved them.

/// UTF-8 of @p text with every line end (CR LF, LF or CR) written as CR LF. An unpaired surrogate
/// becomes U+FFFD, so that the count of UTF-16 units stays; zero characters are kept.
QByteArray editorUtf8(const QString &text);

/// The same for the bytes of a file: UTF-8 with or without a mark, UTF-16 in either byte order
/// with or without a mark, and Latin-1 for whatever is none of these.
QByteArray editorUtf8FromFile(const QByteArray &bytes);
