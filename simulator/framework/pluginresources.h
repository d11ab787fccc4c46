#pragma once

namespace simulator
{

/// What plug-ins register with Qt as resources. One that stays mapped keeps its own, and Qt looks
/// for each ":/" name through those of all. Graphical thread only.
namespace pluginresources
{

/// Unregisters those of the library that has this address: nothing is found in them any more.
void releaseOf(const void *address);

} // namespace pluginresources

} // namespace simulator
