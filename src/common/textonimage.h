#pragma once

#include "kvwidget/kviconbutton.h"

/// Has a button show its text on its image. As with all of the platform's enumerations, the number
/// is fixed, and the SDK's own name for it is not.
constexpr auto textOnImage = static_cast<KvIconButton::ShowMode>(1);
