#pragma once

/// From here on, waits of this thread and of those that it starts may end 0.4 ms later than asked.
/// The upgrader asks its line ten thousand times in each second of silence, at a time factor still
/// more often: on time, that alone would keep a tenth of the host busy. Not for what measures how
/// soon a wait ends, as the check of the files does.
void letWaitsEndLate();
