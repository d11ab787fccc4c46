#include "dab/dabmodule.h"

DabModule::DabModule() = default;

DabModule::~DabModule() = default;

DabModulePlugin::~DabModulePlugin() = default;
