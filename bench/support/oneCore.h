#pragma once

#include <QtGlobal>

/// Binds this process and @p server, with all threads that they have, to one core. A client and a
/// server that answer each other thousands of times a second cost as much for waking up each
/// other's core as for what they do, and where the kernel places them is chance, which stays for
/// the life of a connection: without this, one side of a comparison may be twice as fast as the
/// other by luck alone.
/// Ends the benchmark when the binding fails.
void shareOneCore(qint64 server);
