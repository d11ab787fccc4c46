#pragma once

#include "kvglobal/kvglobal.h"

class QObject;

namespace kvappframework
{

/// A service of the framework that activities look up by name.
class KV_API Module
{
public:
    virtual ~Module();

    /// The object that takes events posted to this module.
    virtual QObject *getReceiver() = 0;
};

} // namespace kvappframework
