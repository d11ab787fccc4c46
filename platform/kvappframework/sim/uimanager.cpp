#include "kvappframework/uimanager.h"

#include "frameworkhost.h"

namespace kvappframework
{

QWidget *UIManager::getUIHerarchy(UIHerarchy herarchy)
{
    return FrameworkHost::current()->layer(herarchy);
}

QRect UIManager::getDeskTopRect()
{
    return FrameworkHost::current()->desktopRect();
}

} // namespace kvappframework
