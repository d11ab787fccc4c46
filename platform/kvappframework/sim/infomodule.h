#pragma once

#include "kvappframework/module.h"

#include <QList>
#include <QObject>
#include <QString>

namespace kvappframework
{

/// The "info" module: keeps the rules by which activities are started on a request of the system,
/// and starts them when the request comes.
class KV_API InfoModule : public QObject, public Module
{
    Q_OBJECT

public:
    /// A rule: start \a activity, provided that \a module is there.
    struct Rule
    {
        QString activity;
        QString module;
    };

    InfoModule();
    ~InfoModule() override;

    QObject *getReceiver() override;
    QList<Rule> rules() const;

    /// Starts the activity of every rule whose module is there.
    void trigger();

protected:
    bool event(QEvent *event) override;

private:
    QList<Rule> m_rules;
};

} // namespace kvappframework
