// Replays the cases of every tests/cli/*.golden file (format in GoldenFile.h)
// through the ferrolith-cli program.
#include <gtest/gtest.h>

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

class CliGolden : public ::testing::TestWithParam<GoldenCase> {};

TEST_P(CliGolden, Replays) {
    const GoldenCase& c = GetParam();
    const golden::Result r = golden::RunCli(c.args);
    EXPECT_EQ(r.code, c.exitCode) << c.file << ":" << c.line;
    EXPECT_EQ(r.out, c.expected) << c.file << ":" << c.line;
}

INSTANTIATE_TEST_SUITE_P(Golden, CliGolden, ::testing::ValuesIn(LoadCases()),
                         [](const ::testing::TestParamInfo<GoldenCase>& info) {
                             std::string name = info.param.file + "_" + std::to_string(info.param.line);
                             for (char& ch : name)
                                 if (!isalnum(static_cast<unsigned char>(ch))) ch = '_';
                             return name;
                         });

}  // namespace
