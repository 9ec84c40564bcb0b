#pragma once

#include "platform/RuntimeError.h"

#include <QString>

/// What a file is opened for.
enum class FileUse { Read, Write };

/// The run-time error that an operating system's failure with a file amounts to:
/// 53 no such file, 76 no such folder, 75 a file that may not be written (or is a folder), 70 one
/// that may not be read or is locked, 61 no room, 7 no memory, 57 a failing device.
/// @param osError  the value of errno after the failed operation
RuntimeError fileError(int osError, const QString &path, FileUse use);
