#include "btsnoopcopy.h"

#include "common/fileexists.h"
#include "common/runcommand.h"
#include "common/shelltext.h"
#include "common/trace.h"

#include <QByteArray>

namespace
{

/// Paths and commands of one folder of logs; "%s" is the storage device's mount root.
struct LogFolder
{
    const char *folder;
    const char *log;
    const char *removeLog;
    const char *makeFolder;
    const char *copyLog;
};

constexpr LogFolder logFolders[] = {
    {"%s/userdata", "%s/userdata/btsnoop.log", "rm %s/userdata/btsnoop.log", "mkdir -p %s/userdata",
     "cp /media/flash/userdata/btsnoop.log %s/userdata"},
    {"%s/nvm", "%s/nvm/btsnoop.log", "rm %s/nvm/btsnoop.log", "mkdir -p %s/nvm",
     "cp /media/flash/nvm/btsnoop.log %s/nvm"},
};

/// Runs the commands of one copy to one device.
class BtsnoopCopy
{
public:
    explicit BtsnoopCopy(const QByteArray &device);

    bool isPossible();
    void copy(const LogFolder &logs);

private:
    bool format(const char *text);
    bool exists(const char *path);
    void runThenSync(const char *command);

    const QByteArray m_device;
    char m_buffer[256];
};

BtsnoopCopy::BtsnoopCopy(const QByteArray &device)
    : m_device(device)
{
}

bool BtsnoopCopy::isPossible()
{
    if (!isPlainForShell(m_device.constData())) {
        return false;
    }
    for (const LogFolder &logs : logFolders) {
        // The longest text of its folder: where it fits, all the others do.
        if (!format(logs.copyLog)) {
            return false;
        }
    }
    return true;
}

void BtsnoopCopy::copy(const LogFolder &logs)
{
    if (!exists(logs.folder)) {
        runThenSync(logs.makeFolder);
    } else if (exists(logs.log)) {
        runThenSync(logs.removeLog);
    }
    runThenSync(logs.copyLog);
}

bool BtsnoopCopy::format(const char *text)
{
    return formatCommand(m_buffer, sizeof m_buffer, text, m_device.constData());
}

bool BtsnoopCopy::exists(const char *path)
{
    return format(path) && fileExists(m_buffer);
}

void BtsnoopCopy::runThenSync(const char *command)
{
    if (format(command)) {
        runCommand(m_buffer);
    }
    runCommand("sync");
}

} // namespace

void copyBtsnoopLogs(const QByteArray &device)
{
    BtsnoopCopy copy(device);
    if (!copy.isPossible()) {
        FACTORY_TRACE << "device not usable in a command:" << device;
        return;
    }
    for (const LogFolder &logs : logFolders) {
        copy.copy(logs);
    }
}
