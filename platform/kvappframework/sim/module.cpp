#include "kvappframework/module.h"

namespace kvappframework
{

Module::~Module() = default;

} // namespace kvappframework
