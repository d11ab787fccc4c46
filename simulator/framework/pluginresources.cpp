#include "pluginresources.h"

#include <QtGlobal>

#include <dlfcn.h>

#include <algorithm>
#include <vector>

using Bytes = const unsigned char *;

// Qt's own, which the code that rcc makes declares like this as well.
bool qRegisterResourceData(int version, Bytes tree, Bytes name, Bytes data);
bool qUnregisterResourceData(int version, Bytes tree, Bytes name, Bytes data);

namespace
{

struct Resource
{
    int version;
    Bytes tree;
    Bytes name;
    Bytes data;
};

/// A function's own, since libraries register theirs before main() is called.
std::vector<Resource> &registered()
{
    static std::vector<Resource> all;
    return all;
}

/// Where the library that has this address is mapped; null when none has.
const void *baseOf(const void *address)
{
    Dl_info info = {};
    return dladdr(address, &info) == 0 ? nullptr : info.dli_fbase;
}

} // namespace

/// Stands before Qt's own, for all libraries of the process.
Q_DECL_EXPORT bool qRegisterResourceData(int version, Bytes tree, Bytes name, Bytes data)
{
    registered().push_back({version, tree, name, data});
    static const auto original = reinterpret_cast<decltype(&qRegisterResourceData)>(
        dlsym(RTLD_NEXT, "_Z21qRegisterResourceDataiPKhS0_S0_"));
    return original(version, tree, name, data);
}

namespace simulator
{

void pluginresources::releaseOf(const void *address)
{
    const void *const library = baseOf(address);
    auto &all = registered();
    const auto released =
        std::stable_partition(all.begin(), all.end(), [library](const Resource &each) {
            return baseOf(each.tree) != library;
        });
    std::for_each(released, all.end(), [](const Resource &each) {
        qUnregisterResourceData(each.version, each.tree, each.name, each.data);
    });
    all.erase(released, all.end());
}

} // namespace simulator
