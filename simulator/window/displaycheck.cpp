#include "displaycheck.h"

#include "simulator/exitstatus.h"

#include <QByteArray>
#include <QString>

#include <cstdio>
#include <cstdlib>

namespace simulator
{

namespace
{

/// What the platform plug-in complained of first.
QString &complaint()
{
    static QString made;
    return made;
}
QtMessageHandler handlerBefore = nullptr;

[[noreturn]] void refuse()
{
    const QString reason =
        complaint().isEmpty() ? QString() : QStringLiteral(" (%1)").arg(complaint());
    std::fprintf(stderr, "There is no display to show the unit on%s; --headless runs it without.\n",
                 qUtf8Printable(reason));
    std::_Exit(ExitDisplay);
}

/// Keeps quiet whatever else Qt says: a display that opens was worth no complaint.
void keepComplaint(QtMsgType type, const QMessageLogContext &context, const QString &message)
{
    if (type == QtFatalMsg) {
        refuse();
    }
    if (complaint().isEmpty() && QByteArray(context.category).startsWith("qt.qpa")) {
        complaint() = message;
    }
}

} // namespace

DisplayCheck::DisplayCheck(bool headless)
{
    if (headless) {
        qputenv("QT_QPA_PLATFORM", "offscreen");
    } else if (qEnvironmentVariableIsEmpty("DISPLAY")
               && qEnvironmentVariableIsEmpty("WAYLAND_DISPLAY")
               && qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) {
        refuse();
    }
    handlerBefore = qInstallMessageHandler(keepComplaint);
}

DisplayCheck::~DisplayCheck()
{
    qInstallMessageHandler(handlerBefore);
    complaint().clear();
}

} // namespace simulator
