#pragma once

/// Copies the system logs and the crash dump of the unit's flash to "QM_SYSTEMLOG" on the storage
/// with that mount root. Blocks until the shell is done; the result of no command is looked at.
/// False when nothing was copied: the mount root does not exist, or there is no folder of logs, in
/// which case "QM_SYSTEMLOG" is made nevertheless. A mount root that the shell would interpret, or
/// too long for a command of 127 bytes, is traced and nothing is run.
bool copySystemLogs(const char *rootPath);

/// Whether the unit has a folder of system logs.
bool hasSystemLogs();
