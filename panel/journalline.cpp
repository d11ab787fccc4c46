#include "journalline.h"

#include <QJsonDocument>
#include <QJsonObject>

namespace panel
{

std::optional<JournalLine> JournalLine::read(const QString &json)
{
    const QJsonObject object = QJsonDocument::fromJson(json.toUtf8()).object();
    if (!object.contains(QLatin1String("line"))) {
        return std::nullopt;
    }
    const QJsonObject cause = object.value(QLatin1String("cause")).toObject();
    return JournalLine{qint64(object.value(QLatin1String("line")).toDouble()),
                       object.value(QLatin1String("seconds")).toDouble(),
                       object.value(QLatin1String("source")).toString(),
                       object.value(QLatin1String("text")).toString(),
                       qint64(cause.value(QLatin1String("number")).toDouble()),
                       cause.value(QLatin1String("text")).toString()};
}

} // namespace panel
