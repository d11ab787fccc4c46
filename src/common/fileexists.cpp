#include "fileexists.h"

#include <QString>

#include <unistd.h>

bool fileExists(const char *path)
{
    return access(path, F_OK) == 0;
}

bool fileExists(const QString &path)
{
    return fileExists(path.toLocal8Bit().constData());
}
