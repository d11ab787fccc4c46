#include "sessionhead.h"

namespace simulator
{

namespace sessionhead
{

namespace
{
const QLatin1String title("# headunit session ");
const QLatin1String version("1");
} // namespace

QString line()
{
    return title + version;
}

QString complaint(const QString &line)
{
    const QString told = line.mid(title.size()).trimmed();
    return !line.startsWith(title) || told == version
        ? QString()
        : QStringLiteral("the session is written in format \"%1\"; this program knows format %2")
              .arg(told, version);
}

} // namespace sessionhead

} // namespace simulator
