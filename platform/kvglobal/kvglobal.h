#pragma once

#include <QtGlobal>

/// Marks what a platform library shows to its users; everything else stays hidden in the library.
#define KV_API Q_DECL_EXPORT
