#include "mousedisplay.h"

#include <QStandardPaths>

#include <cmath>

namespace
{

const int patienceMs = 60000;

/// Where the screen lies in the unit's window, at its scale 1.
constexpr QPoint screenPosition(40, 36);

} // namespace

MouseDisplay::MouseDisplay() = default;

MouseDisplay::~MouseDisplay()
{
    m_server.terminate();
    m_server.waitForFinished();
}

bool MouseDisplay::isInstalled()
{
    return !QStandardPaths::findExecutable(QStringLiteral("Xvfb")).isEmpty();
}

bool MouseDisplay::start(double scale)
{
    m_scale = scale;
    m_server.start(QStringLiteral("Xvfb"),
                   {QStringLiteral("-displayfd"), QStringLiteral("1"), QStringLiteral("-screen"),
                    QStringLiteral("0"), QStringLiteral("1800x1300x24"),
                    QStringLiteral("-nolisten"), QStringLiteral("tcp"),
                    QStringLiteral("-noreset")});
    while (!m_server.canReadLine() && m_server.waitForReadyRead(patienceMs)) { }
    m_name = QLatin1Char(':') + QString::fromLatin1(m_server.readLine()).trimmed();
    return m_name.size() > 1;
}

QProcessEnvironment MouseDisplay::environment() const
{
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(QStringLiteral("DISPLAY"), m_name);
    environment.insert(QStringLiteral("QT_QPA_PLATFORM"), QStringLiteral("xcb"));
    environment.remove(QStringLiteral("WAYLAND_DISPLAY"));
    environment.insert(QStringLiteral("QT_SCALE_FACTOR"), QStringLiteral("2"));
    // What the display's libraries keep until the end is not ours; units without a window are still
    // searched for leaks.
    const QString leaks = QStringLiteral("LSAN_OPTIONS");
    environment.insert(leaks, environment.value(leaks) + QStringLiteral(":detect_leaks=0"));
    return environment;
}

bool MouseDisplay::findWindow()
{
    QByteArray found;
    const bool isThere = runTool({QStringLiteral("search"), QStringLiteral("--sync"),
                                  QStringLiteral("--onlyvisible"), QStringLiteral("--name"),
                                  QStringLiteral("Simulated head unit")},
                                 &found);
    m_window = QString::fromLatin1(found).section(QLatin1Char('\n'), 0, 0);
    return isThere && !m_window.isEmpty();
}

bool MouseDisplay::touch(const QStringList &actions)
{
    QStringList arguments;
    for (const QString &action : actions) {
        const QStringList words = action.split(QLatin1Char(' '));
        const QString &kind = words.first();
        if (kind == QLatin1String("sleep")) {
            arguments += words;
        } else if (kind == QLatin1String("up")) {
            arguments += {QStringLiteral("mouseup"), QStringLiteral("1")};
        } else {
            arguments += pointer(words.mid(1));
        }
        if (kind == QLatin1String("down") || kind == QLatin1String("click")) {
            arguments += {QLatin1String(kind == QLatin1String("down") ? "mousedown" : "click"),
                          QStringLiteral("1")};
        }
    }
    QByteArray ignored;
    return runTool(arguments, &ignored);
}

QStringList MouseDisplay::pointer(const QStringList &place) const
{
    const auto scaled = [this](const QString &number, int origin) {
        return QString::number(int(std::floor((number.toInt() + origin + 0.5) * m_scale)));
    };
    return {QStringLiteral("mousemove"), QStringLiteral("--window"), m_window,
            scaled(place.value(0), screenPosition.x()), scaled(place.value(1), screenPosition.y())};
}

bool MouseDisplay::runTool(const QStringList &arguments, QByteArray *output)
{
    QProcess tool;
    tool.setProcessEnvironment(environment());
    tool.start(QStringLiteral("xdotool"), arguments);
    if (!tool.waitForFinished(patienceMs)) {
        return false;
    }
    *output = tool.readAllStandardOutput();
    return tool.exitStatus() == QProcess::NormalExit && tool.exitCode() == 0;
}
