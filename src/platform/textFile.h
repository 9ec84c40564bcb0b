#pragma once

#include <QByteArray>
#include <QString>

/// Text as the editor keeps it, and the contents of files in whatever form somebody saved them.

/// UTF-8 of @p text with every line end (CR LF, LF or CR) written as CR LF. An unpaired surrogate
/// becomes U+FFFD, so that the count of UTF-16 units stays; zero characters are kept.
QByteArray editorUtf8(const QString &text);

/// The same for the bytes of a file: UTF-8 with or without a mark, UTF-16 in either byte order
/// with or without a mark, and Latin-1 for whatever is none of these.
QByteArray editorUtf8FromFile(const QByteArray &bytes);
