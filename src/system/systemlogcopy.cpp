#include "systemlogcopy.h"

#include "factorydebug/shelltext.h"
#include "factorydebug/trace.h"

#include <cstdlib>
#include <unistd.h>

namespace
{

const char logSource[] = "/media/flash/userdata/log_service/";
const char crashDump[] = "/media/flash/nvm/dfb_crash.dump";

const char makeTarget[] = "mkdir -p %s/QM_SYSTEMLOG";
const char copyLogs[] = "cp -rf %s/*  %s/QM_SYSTEMLOG/";
const char copyDump[] = "cp -rf %s  %s/QM_SYSTEMLOG/";
const char flushStorage[] = "sync";

bool exists(const char *path)
{
    return access(path, F_OK) == 0;
}

void run(const char *command)
{
    const int status = std::system(command);
    Q_UNUSED(status);
}

} // namespace

bool hasSystemLogs()
{
    return exists(logSource);
}

bool copySystemLogs(const char *rootPath)
{
    if (!exists(rootPath)) {
        return false;
    }
    char command[128];
    // The longest command: where it fits, all the others do.
    if (!isPlainForShell(rootPath)
        || !formatCommand(command, sizeof command, copyLogs, logSource, rootPath)) {
        FACTORY_TRACE << "storage not usable in a command:" << rootPath;
        return false;
    }
    formatCommand(command, sizeof command, makeTarget, rootPath);
    run(command);
    if (!hasSystemLogs()) {
        return false;
    }
    formatCommand(command, sizeof command, copyLogs, logSource, rootPath);
    run(command);
    formatCommand(command, sizeof command, copyDump, crashDump, rootPath);
    run(command);
    run(flushStorage);
    return true;
}
