// Runs a fuzz target over the files of its corpus without libFuzzer: the inputs that once
// found faults stay part of the ordinary test run. Usage: fuzz_X DIRECTORY
#include <cstdint>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <set>
#include <vector>

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size);
extern "C" __attribute__((weak)) int LLVMFuzzerInitialize(int *argc, char ***argv);

int main(int argc, char **argv)
{
    if (argc != 2)
        return 2;
    if (LLVMFuzzerInitialize)
        LLVMFuzzerInitialize(&argc, &argv);
    std::set<std::filesystem::path> files; // in name order
    for (const auto &entry : std::filesystem::directory_iterator(argv[1]))
        files.insert(entry.path());
    for (const auto &file : files) {
        std::ifstream in(file, std::ios::binary);
        const std::vector<uint8_t> data{std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()};
        std::fprintf(stderr, "%s\n", file.filename().c_str());
        LLVMFuzzerTestOneInput(data.data(), data.size());
    }
    std::printf("%zu inputs replayed\n", files.size());
    return files.empty() ? 1 : 0;
}
