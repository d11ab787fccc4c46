#pragma once

#include "kvglobal/kvglobal.h"

#include <QRect>

class QWidget;

namespace kvappframework
{

/// The layers of the unit's user interface, the larger number above the smaller.
enum UIHerarchy {
    UI_HERARCHY_BACKGROUND = 0,
    UI_HERARCHY_ACTIVITY = 1,
    UI_HERARCHY_OVERLAY = 2,
    UI_HERARCHY_POPUP = 3,
};

/// Where activities put their widgets. Graphical thread only.
class KV_API UIManager
{
public:
    /// The widget that is the parent of everything on that layer; it covers the whole screen.
    static QWidget *getUIHerarchy(UIHerarchy herarchy);

    /// The rectangle of the whole display, in pixels.
    static QRect getDeskTopRect();
};

} // namespace kvappframework
