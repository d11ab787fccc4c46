#pragma once

#include <atomic>

namespace hardware
{

/// Address of the C library's function of that name, past this program's own; ends the process
/// with a message when there is none. Keeps errno. Any thread.
void *hostFunction(const char *name);

/// The C library's own function, which the definition \a Replacement of the same \a name hides.
template <auto *Replacement> auto hostCall(const char *name)
{
    static std::atomic<decltype(Replacement)> known{nullptr};
    auto function = known.load(std::memory_order_acquire);
    if (function == nullptr) {
        function = reinterpret_cast<decltype(Replacement)>(hostFunction(name));
        known.store(function, std::memory_order_release);
    }
    return function;
}

} // namespace hardware
