#pragma once

class QFile;

/// Waits until the disk has what was written to an unbuffered file.
/// @returns whether it has; errno says why not
bool flushToDisk(QFile &file);
