#include "module.h"

namespace kvappframework
{

Module::~Module() = default;

} // namespace kvappframework
