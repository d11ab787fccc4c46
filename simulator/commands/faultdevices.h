#pragma once

#include <QStringList>

#include <functional>

namespace hardware
{
class Unit;
}

namespace simulator
{

/// A device of the unit of which something can go wrong, and how the console has it do so.
struct FaultDevice
{
    QString name;
    /// What can go wrong, each with its words and what they do.
    std::function<QStringList()> possible;
    /// What does at the moment, as set() would take it.
    std::function<QStringList()> present;
    /// False with a sentence in \a error for words that name nothing that can go wrong.
    std::function<bool(const QStringList &words, QString *error)> set;
    /// Nothing goes wrong any more.
    std::function<void()> clear;
};

/// All of them; \a unit must outlive them. Their functions may be called from any thread.
QList<FaultDevice> faultDevices(hardware::Unit &unit);

} // namespace simulator
