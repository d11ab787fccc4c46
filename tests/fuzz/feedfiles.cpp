// Feeds a fuzzer's function with files and with all files of folders, where there is no libFuzzer.

#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <vector>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size);

namespace
{

namespace fs = std::filesystem;

void feed(const fs::path &path)
{
    std::ifstream file(path, std::ios::binary);
    if (!file) {
        std::fprintf(stderr, "%s cannot be read\n", path.c_str());
        std::exit(1);
    }
    const std::vector<char> bytes((std::istreambuf_iterator<char>(file)), {});
    // On one line, so that the last one told is the one that ends the process.
    std::fprintf(stderr, "%s: %zu bytes\n", path.c_str(), bytes.size());
    LLVMFuzzerTestOneInput(reinterpret_cast<const std::uint8_t *>(bytes.data()), bytes.size());
}

std::vector<fs::path> filesBelow(const fs::path &path)
{
    if (!fs::is_directory(path)) {
        return {path};
    }
    std::vector<fs::path> files;
    for (const fs::directory_entry &entry : fs::directory_iterator(path)) {
        files.push_back(entry.path());
    }
    return files;
}

} // namespace

int main(int argc, char *argv[])
{
    int fed = 0;
    for (int i = 1; i < argc; ++i) {
        for (const fs::path &file : filesBelow(argv[i])) {
            feed(file);
            ++fed;
        }
    }
    std::fprintf(stderr, "%d files\n", fed);
    return fed > 0 ? 0 : 1;
}
