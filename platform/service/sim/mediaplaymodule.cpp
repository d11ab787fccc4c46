#include "service/mediaplaymodule.h"

MediaplayModule::~MediaplayModule() = default;

MediaplayModulePlugin::~MediaplayModulePlugin() = default;
