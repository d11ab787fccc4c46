#include "gpsupgrade.h"

#include "gpsserial.h"
#include "receiverdeadline.h"
#include "xmodemsender.h"

#include <termios.h>
#include <unistd.h>

#include <cctype>
#include <cstdio>
#include <cstring>

namespace
{

constexpr int upgraded = 0;
constexpr int bootloaderFailed = -3;
constexpr int firmwareFailed = -4;
constexpr int portClosed = -5;

constexpr unsigned int replySize = 1023;

constexpr char configurePort[] = "$CFGPRT,1,0,115200,3,3\n";
constexpr char queryProduct[] = "$PDTINFO\r\n";
constexpr char leaveLoader[] = "5\r\n";
constexpr char resetReceiver[] = "$RESET,hf0,hff\n";
constexpr char enterLoader[] = "M!T";
constexpr char loaderEntered[] = "YC";
constexpr char xmodemRequest = 'C';
constexpr char bootPrompt[] = "boot>";
constexpr char selectFlash[] = "2\r";
constexpr char flashSelected[] = "begin to update flash from uart";
constexpr char firstSentence[] = "$GNRMC";

void printTimeOut()
{
    std::printf("\ntimeout!!!\n");
}

/// One upgrade over the open line, which it closes in the end.
class GpsUpgrade
{
public:
    explicit GpsUpgrade(int fd);
    ~GpsUpgrade();

    int run(const char *bootloaderPath, const char *firmwarePath);

private:
    GpsUpgrade(const GpsUpgrade &);
    GpsUpgrade &operator=(const GpsUpgrade &);

    void configureLine();
    void queryVersion();
    bool enterRomLoader();
    bool waitForLoader();
    bool waitForXmodemRequest();
    bool sendBootloader(const char *path);
    bool sendFirmware(const char *path);
    bool waitForFirmware();

    void send(const char *text);
    void sendLeaveLoader();
    int readReply();
    bool waitForReply(const char *wanted, useconds_t pauseUs, const char *repeated = nullptr);

    const int m_fd;
    char m_reply[replySize + 1];
};

GpsUpgrade::GpsUpgrade(int fd)
    : m_fd(fd)
    , m_reply()
{
}

GpsUpgrade::~GpsUpgrade()
{
    close(m_fd);
}

int GpsUpgrade::run(const char *bootloaderPath, const char *firmwarePath)
{
    configureLine();
    queryVersion();
    if (!enterRomLoader() || !sendBootloader(bootloaderPath)) {
        return bootloaderFailed;
    }
    return sendFirmware(firmwarePath) && waitForFirmware() ? upgraded : firmwareFailed;
}

void GpsUpgrade::configureLine()
{
    usleep(5000);
    send(configurePort);
    tcdrain(m_fd);
    usleep(200000);
    set_baudrate(m_fd, B115200);
    usleep(200000);
    tcflush(m_fd, TCIFLUSH);
}

void GpsUpgrade::queryVersion()
{
    send(queryProduct);
    sleep(2);
    int count = 0;
    if (wait_readable(m_fd) > 0) {
        usleep(50000);
        count = readReply();
    }
    std::printf("rByte = %d...\n", count);
}

bool GpsUpgrade::enterRomLoader()
{
    sendLeaveLoader();
    send(resetReceiver);
    send(resetReceiver);
    const bool entered = waitForLoader();
    std::printf("\n");
    return entered || waitForXmodemRequest();
}

/// The last two bytes of each reading stay in front of the next one, since the answer may be split;
/// at first they are what the product query left there.
bool GpsUpgrade::waitForLoader()
{
    const int carried = 2;
    std::printf("waiting for YC, timeout is %d s\n", ReceiverDeadline::seconds);
    const ReceiverDeadline deadline;
    while (!deadline.hasPassed()) {
        send(enterLoader);
        if (wait_readable(m_fd) <= 0) {
            continue;
        }
        const int end = carried + deal_read(m_fd, m_reply + carried, replySize - carried);
        m_reply[end] = '\0';
        for (char *c = m_reply; c != m_reply + end; ++c) {
            // Else the search would stop there.
            *c = *c == '\0' ? '\x01' : *c;
            const unsigned char byte = static_cast<unsigned char>(*c);
            std::printf(std::isprint(byte) || std::isspace(byte) ? "%c" : "\\%02X", byte);
        }
        if (std::strstr(m_reply, loaderEntered) != nullptr) {
            return true;
        }
        std::memmove(m_reply, m_reply + end - carried, carried);
    }
    printTimeOut();
    return false;
}

bool GpsUpgrade::waitForXmodemRequest()
{
    char reply[1024];
    const ReceiverDeadline deadline;
    while (!deadline.hasPassed()) {
        if (wait_readable(m_fd) <= 0) {
            continue;
        }
        const int count = deal_read(m_fd, reply, sizeof reply);
        if (reply[count - 1] == xmodemRequest) {
            std::puts("###read xmodem start character 'C'.");
            return true;
        }
    }
    printTimeOut();
    return false;
}

bool GpsUpgrade::sendBootloader(const char *path)
{
    // From here on the line is not to be asked so often that the processor has no time for others.
    use_select_wait = 1;
    std::puts("download bootloader...");
    std::printf("bootloader: %s\n", path);
    if (xmodem_send(m_fd, path) != 0) {
        std::puts("xmodem error!");
        return false;
    }
    if (!waitForReply(bootPrompt, 50000)) {
        return false;
    }
    std::puts("download bootloader success");
    return true;
}

bool GpsUpgrade::sendFirmware(const char *path)
{
    std::puts("Download firmware...");
    send(selectFlash);
    if (!waitForReply(flashSelected, 100000, selectFlash)) {
        return false;
    }
    if (xmodem_send(m_fd, path) < 0) {
        std::puts("xmodem error! upgrade failed!");
        return false;
    }
    std::puts("Download firmware success");
    return true;
}

bool GpsUpgrade::waitForFirmware()
{
    usleep(200000);
    sendLeaveLoader();
    set_baudrate(m_fd, B9600);
    if (!waitForReply(firstSentence, 50000)) {
        return false;
    }
    std::puts("\n===== THE UPGRADE IS SUCCESSFUL, reseting=====");
    return true;
}

void GpsUpgrade::send(const char *text)
{
    // What does not get through is not answered, and that is what is looked at.
    const ssize_t written = write(m_fd, text, std::strlen(text));
    static_cast<void>(written);
}

void GpsUpgrade::sendLeaveLoader()
{
    for (int time = 0; time < 3; ++time) {
        send(leaveLoader);
        usleep(50000);
    }
}

/// Reads what is there and prints it, up to its first zero byte.
int GpsUpgrade::readReply()
{
    const int count = deal_read(m_fd, m_reply, replySize);
    m_reply[count] = '\0';
    std::printf("%s", m_reply);
    return count;
}

/// Waits for a reading with that text, \a pauseUs after its first byte, and meanwhile sends
/// \a repeated again and again.
bool GpsUpgrade::waitForReply(const char *wanted, useconds_t pauseUs, const char *repeated)
{
    const ReceiverDeadline deadline;
    while (!deadline.hasPassed()) {
        if (repeated != nullptr) {
            send(repeated);
        }
        if (wait_readable(m_fd) <= 0) {
            continue;
        }
        usleep(pauseUs);
        readReply();
        if (std::strstr(m_reply, wanted) != nullptr) {
            return true;
        }
    }
    printTimeOut();
    return false;
}

} // namespace

int upgradeStart(const char *bootloaderPath, const char *firmwarePath)
{
    const int fd = initial_serialPort();
    if (fd < 0) {
        std::puts("Can't open COM");
        return portClosed;
    }
    return GpsUpgrade(fd).run(bootloaderPath, firmwarePath);
}
