#include "systemlogcopy.h"

#include "common/fileexists.h"
#include "common/runcommand.h"
#include "common/shelltext.h"
#include "common/trace.h"

namespace
{

constexpr char logSource[] = "/media/flash/userdata/log_service/";
constexpr char crashDump[] = "/media/flash/nvm/dfb_crash.dump";

constexpr char makeTarget[] = "mkdir -p %s/QM_SYSTEMLOG";
constexpr char copyLogs[] = "cp -rf %s/*  %s/QM_SYSTEMLOG/";
constexpr char copyDump[] = "cp -rf %s  %s/QM_SYSTEMLOG/";

} // namespace

bool hasSystemLogs()
{
    return fileExists(logSource);
}

bool copySystemLogs(const char *rootPath)
{
    if (!fileExists(rootPath)) {
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
    runCommand(command);
    if (!hasSystemLogs()) {
        return false;
    }
    formatCommand(command, sizeof command, copyLogs, logSource, rootPath);
    runCommand(command);
    formatCommand(command, sizeof command, copyDump, crashDump, rootPath);
    runCommand(command);
    runCommand("sync");
    return true;
}
