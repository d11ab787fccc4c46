#include "kvappframework/activity.h"

namespace kvappframework
{

Activity::~Activity() = default;

} // namespace kvappframework
