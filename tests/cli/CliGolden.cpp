// Replays the cases of every tests/cli/*.golden file (format in GoldenFile.h)
// through the ferrolith-cli program, and checks what it says on stderr.
#include <gtest/gtest.h>
#include <algorithm>
#include <cmath>
#include <cstdlib>

#include "GoldenFile.h"

namespace {

using golden::GoldenCase;

std::vector<GoldenCase> LoadCases() {
    std::vector<std::filesystem::path> files;
    for (const auto& e : std::filesystem::directory_iterator(FERROLITH_GOLDEN_DIR))
        if (e.path().extension() == ".golden") files.push_back(e.path());
    std::sort(files.begin(), files.end());
    std::vector<GoldenCase> cases;
    for (const auto& f : files)
        for (GoldenCase& c : golden::LoadFile(f, FERROLITH_GOLDEN_DIR "/../..")) cases.push_back(std::move(c));
    return cases;
}

// Full-precision outputs (the JSON formats print 17 digits) may differ in the
// last bits between optimisation levels: the text must match exactly outside
// numbers, and each number to 1e-12 relative (absolute near zero).
bool SameOutput(const std::string& a, const std::string& b) {
    if (a == b) return true;
    const char* pa = a.c_str();
    const char* pb = b.c_str();
    while (*pa && *pb) {
        const bool numA = isdigit(static_cast<unsigned char>(*pa)) || *pa == '-';
        const bool numB = isdigit(static_cast<unsigned char>(*pb)) || *pb == '-';
        if (numA && numB) {
            char* endA = nullptr;
            char* endB = nullptr;
            const double x = std::strtod(pa, &endA);
            const double y = std::strtod(pb, &endB);
            if (endA != pa && endB != pb) {
                const double scale = std::max({1.0, std::fabs(x), std::fabs(y)});
                if (!(std::fabs(x - y) <= 1e-12 * scale)) return false;
                pa = endA;
                pb = endB;
                continue;
            }
        }
        if (*pa++ != *pb++) return false;
    }
    return *pa == *pb;
}

class CliGolden : public ::testing::TestWithParam<GoldenCase> {};

TEST_P(CliGolden, Replays) {
    const GoldenCase& c = GetParam();
    const golden::Result r = golden::RunCli(c.args);
    EXPECT_EQ(r.code, c.exitCode) << c.file << ":" << c.line;
    EXPECT_TRUE(SameOutput(r.out, c.expected)) << c.file << ":" << c.line << "\n got: " << r.out
                                               << "\n want: " << c.expected;
    // A run says on stderr what its case names (a success nothing else); a
    // failure without named lines says one line, and a wrong shape of
    // arguments adds the usage line.
    if (c.exitCode == 0 || !c.expectedErr.empty()) {
        EXPECT_EQ(r.err, c.expectedErr) << c.file << ":" << c.line;
    } else {
        const auto lines = std::count(r.err.begin(), r.err.end(), '\n');
        EXPECT_EQ(r.err.rfind("ferrolith-cli: ", 0), 0u) << c.file << ":" << c.line << " " << r.err;
        EXPECT_TRUE(lines == 1 || (lines == 2 && r.err.find("\nusage: ") != std::string::npos))
            << c.file << ":" << c.line << " " << r.err;
    }
}

INSTANTIATE_TEST_SUITE_P(Golden, CliGolden, ::testing::ValuesIn(LoadCases()),
                         [](const ::testing::TestParamInfo<GoldenCase>& info) {
                             std::string name = info.param.file + "_" + std::to_string(info.param.line);
                             for (char& ch : name)
                                 if (!isalnum(static_cast<unsigned char>(ch))) ch = '_';
                             return name;
                         });

}  // namespace
