#include "gate.h"

#include "hardware/unit/unit.h"
#include "hardware/unit/unittime.h"

#include <QFile>

#include <atomic>

namespace hardware
{

namespace
{

std::atomic<const Gate *> livingGate{nullptr};

} // namespace

Gate::Gate(const Unit &unit)
    : m_unit(unit)
    , m_root(QFile::encodeName(unit.folder().root()))
{
    UnitTime::setCurrent(std::make_shared<UnitTime>(unit.clock()));
    const Gate *other = livingGate.exchange(this);
    if (other != nullptr) {
        qFatal("A second gate was made while the first one was open.");
    }
}

Gate::~Gate()
{
    livingGate = nullptr;
    UnitTime::setCurrent(nullptr);
}

const Gate *Gate::current()
{
    return livingGate.load(std::memory_order_acquire);
}

} // namespace hardware
