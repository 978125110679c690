// A folder of its own for each file test, removed afterwards, with the
// helpers the file tests share: whole-file bytes in and out, and a count of
// what the folder holds (a save must leave no temporary file behind).
#pragma once

#include <gtest/gtest.h>
#include <unistd.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <string_view>

namespace testutil {

class TempFolder : public testing::Test {
protected:
    void SetUp() override {
        dir_ = std::filesystem::temp_directory_path() /
               ("ferrolith_test_" + std::to_string(::getpid()) + "_" +
                testing::UnitTest::GetInstance()->current_test_info()->name());
        std::filesystem::remove_all(dir_);
        std::filesystem::create_directories(dir_);
    }
    void TearDown() override { std::filesystem::remove_all(dir_); }

    std::string P(const std::string& name) const { return (dir_ / name).string(); }
    static std::string ReadAll(const std::filesystem::path& p) {
        std::ifstream in(p, std::ios::binary);
        return {std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()};
    }
    static void WriteAll(const std::filesystem::path& p, std::string_view bytes) {
        std::ofstream(p, std::ios::binary).write(bytes.data(), std::streamsize(bytes.size()));
    }
    size_t Entries(const std::filesystem::path& folder = {}) const {
        const auto& d = folder.empty() ? dir_ : folder;
        return static_cast<size_t>(
            std::distance(std::filesystem::directory_iterator(d), std::filesystem::directory_iterator()));
    }

    std::filesystem::path dir_;
};

}  // namespace testutil
