#pragma once

class QString;

/// Whether there is anything by that name, by the local 8-bit encoding where it is a QString.
bool fileExists(const char *path);
bool fileExists(const QString &path);
