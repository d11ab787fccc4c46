#pragma once

/// The process's application, which needs no display; made by the first call.
void startScreenless();
