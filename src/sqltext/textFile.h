#pragma once

#include <QByteArray>
#include <QString>

/// Text as the editor keeps it, and files in whatever form somebody saved them.

/// UTF-8 of @p text with every line end (CR LF, LF or CR) written as CR LF. An unpaired surrogate
/// becomes U+FFFD, so that the count of UTF-16 units stays; zero characters are kept.
QByteArray editorUtf8(const QString &text);

/// The same for the bytes of a file: UTF-8 with or without a mark, UTF-16 in either byte order
/// with or without a mark, and Latin-1 for whatever is none of these.
QByteArray editorUtf8FromFile(const QByteArray &bytes);

/// The whole content of a regular file.
/// @throws RuntimeError 53 no such file, 76 no such folder, 70 not readable, 75 a folder or
/// device, 7 too large for an editor (1 GB), 57 the reading broke off
QByteArray readWholeFile(const QString &path);
