#include "activity.h"

namespace kvappframework
{

Activity::~Activity() = default;

} // namespace kvappframework
