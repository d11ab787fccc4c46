#include "infomodule.h"

#include "frameworkhost.h"
#include "simmodulemanager.h"

#include "kvappframework/activitymanager.h"
#include "kvappframework/eventprivatedata.h"
#include "kvappframework/sysevent.h"

#include "hardware/unit/unit.h"
#include "unitlink/simulatedunit.h"

#include <algorithm>

namespace kvappframework
{

namespace
{

void journal(const QString &text)
{
    unitlink::unit().journal().write(QStringLiteral("info"), text);
}

} // namespace

InfoModule::InfoModule() = default;

InfoModule::~InfoModule() = default;

QObject *InfoModule::getReceiver()
{
    return this;
}

QList<InfoModule::Rule> InfoModule::rules() const
{
    return m_rules;
}

void InfoModule::trigger()
{
    journal(QStringLiteral("factory debug requested"));
    for (const Rule &rule : qAsConst(m_rules)) {
        if (FrameworkHost::current()->modules().find(rule.module) != nullptr) {
            ActivityManager::self()->startActivity(rule.activity, 0);
        } else {
            journal(QStringLiteral("missing module %1").arg(rule.module));
        }
    }
}

bool InfoModule::event(QEvent *event)
{
    if (event->type() != UserType) {
        return QObject::event(event);
    }
    const auto *message = static_cast<const SysEvent *>(event);
    if (message->eventId() != SysEvent::EventImplicitRule || message->privateData() == nullptr) {
        journal(QStringLiteral("ignored event %1").arg(message->eventId()));
        return true;
    }
    const Rule rule{message->privateData()->name(), message->privateData()->data().toString()};
    const bool known = std::any_of(m_rules.cbegin(), m_rules.cend(), [&rule](const Rule &other) {
        return other.activity == rule.activity && other.module == rule.module;
    });
    if (!known) {
        m_rules.append(rule);
    }
    journal(QStringLiteral("rule %1 %2").arg(rule.activity, rule.module));
    return true;
}

} // namespace kvappframework
