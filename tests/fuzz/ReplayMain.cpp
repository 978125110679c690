// Without libFuzzer a fuzz target replays the files of its corpus folders and
// a fixed series of random edits of each (bytes changed, cut, inserted,
// removed), so the ordinary test run fuzzes every reader a little.
#include <algorithm>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <random>
#include <string>
#include <vector>

#include "FuzzCheck.h"

constexpr int kRounds = 5000;

int main(int argc, char** argv) {
    namespace fs = std::filesystem;
    std::vector<fs::path> files;
    for (int i = 1; i < argc; ++i) {
        if (fs::is_directory(argv[i])) {
            for (const auto& e : fs::directory_iterator(argv[i]))
                if (e.is_regular_file()) files.push_back(e.path());
        } else {
            files.emplace_back(argv[i]);
        }
    }
    std::sort(files.begin(), files.end());
    for (const fs::path& f : files) {
        std::ifstream in(f, std::ios::binary);
        const std::string bytes{std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()};
        LLVMFuzzerTestOneInput(reinterpret_cast<const uint8_t*>(bytes.data()), bytes.size());
        std::mt19937 rng(20261123);
        for (int round = 0; round < kRounds; ++round) {
            std::string b = bytes;
            for (int edits = 1 + static_cast<int>(rng() % 4); edits > 0; --edits) {
                const size_t at = rng() % (b.size() + 1);
                const uint32_t wild = rng() % 2 ? static_cast<uint32_t>(rng()) : static_cast<uint32_t>(rng() % 5);
                switch (rng() % 5) {
                    case 0: if (at < b.size()) b[at] = static_cast<char>(rng()); break;
                    case 1: b.resize(at); break;
                    case 2: b.insert(at, 1 + rng() % 8, static_cast<char>(rng())); break;
                    case 3: if (at < b.size()) b.erase(at, 1 + rng() % 8); break;
                    default:  // a wild count or length, 16 or 32 bits
                        for (size_t k = 0; k < (rng() % 2 ? 2u : 4u) && at + k < b.size(); ++k)
                            b[at + k] = static_cast<char>(wild >> (8 * k));
                        break;
                }
            }
            LLVMFuzzerTestOneInput(reinterpret_cast<const uint8_t*>(b.data()), b.size());
        }
    }
    std::printf("%zu seeds replayed with %d edits each\n", files.size(), kRounds);
    return files.empty() ? 1 : 0;
}
