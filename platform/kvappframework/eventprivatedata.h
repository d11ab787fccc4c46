#pragma once

#include "kvglobal/kvglobal.h"

#include <QString>
#include <QVariant>

namespace kvappframework
{

/// What a SysEvent carries beyond its value: a name and something about it.
class KV_API EventPrivateData
{
public:
    EventPrivateData(const QString &name, const QVariant &data);

    QString name() const;
    QVariant data() const;

private:
    QString m_name;
    QVariant m_data;
};

} // namespace kvappframework
