#include "kvappframework/eventprivatedata.h"

namespace kvappframework
{

EventPrivateData::EventPrivateData(const QString &name, const QVariant &data)
    : m_name(name)
    , m_data(data)
{
}

QString EventPrivateData::name() const
{
    return m_name;
}

QVariant EventPrivateData::data() const
{
    return m_data;
}

} // namespace kvappframework
