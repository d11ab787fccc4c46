#pragma once

#include <QString>

namespace simulator
{

/// How everything on the simulated unit looks, whatever host it runs on.
namespace appearance
{

/// Fixes what Qt reads from the environment. Before the application object is made.
void prepareEnvironment();

/// Sets style, colours, font and touch-screen habits. After the application object is made. False
/// with one sentence in \a error when the font is missing.
bool apply(QString *error);

} // namespace appearance

} // namespace simulator
