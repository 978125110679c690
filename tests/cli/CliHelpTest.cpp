// ferrolith-cli as a scripting tool: every command's help is its own and its
// examples run as shown; errors are one line (a wrong shape adds the usage
// line, naming every option); the progress line and the calculator's key list.
#include <gtest/gtest.h>

#include <algorithm>
#include <cctype>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>
#include <string_view>
#include <vector>

#include "CalcKeyList.h"
#include "GoldenFile.h"
#include "Progress.h"
#include "calc/core/KeyTable.h"
#include "calc/core/CalculatorEngine.h"

namespace {

using golden::Result;

std::vector<std::string> CommandNames() {
    std::vector<std::string> names;
    std::istringstream in(golden::RunCli({"--help"}).out);
    std::string line;
    bool listing = false;
    while (std::getline(in, line)) {
        if (line == "commands:") listing = true;
        else if (listing && line.empty()) break;
        else if (listing)
            names.push_back(line.substr(2, line.find(' ', 2) - 2));
    }
    return names;
}

size_t Lines(const std::string& s) { return static_cast<size_t>(std::count(s.begin(), s.end(), '\n')); }

TEST(CliHelp, EveryCommandPrintsItsOwnHelpAndItsExamplesRunAsShown) {
    const std::vector<std::string> names = CommandNames();
    ASSERT_GE(names.size(), 9u);
    const std::string general = golden::RunCli({"--help"}).out;
    const std::string prompt = "  $ ferrolith-cli ";
    int examples = 0;
    // A build without Qt makes no sheets: its examples that write one are not run.
    const bool sheets = std::find(names.begin(), names.end(), "sheet") != names.end();
    for (const std::string& name : names) {
        const Result help = golden::RunCli({"help", name});
        EXPECT_EQ(help.code, 0) << name;
        EXPECT_EQ(help.out.rfind("usage: ferrolith-cli " + name + " ", 0), 0u) << help.out;
        EXPECT_NE(help.out.find("\nexamples:\n"), std::string::npos) << name;
        EXPECT_NE(help.out, general);
        EXPECT_EQ(golden::RunCli({name, "--help"}).out, help.out) << name;
        std::istringstream in(help.out);
        for (std::string line; std::getline(in, line);) {
            if (line.rfind(prompt, 0) != 0 || (!sheets && line.find("--sheet") != std::string::npos)) continue;
            ++examples;
            // As a shell runs it, quotes and all.
            const Result r = golden::Run({"/bin/sh", "-c", FERROLITH_CLI " " + line.substr(prompt.size())});
            EXPECT_EQ(r.code, 0) << line << "\n" << r.err;
            // Nothing on stderr but the cross-check's warning.
            EXPECT_TRUE(r.err.empty() || r.err.rfind("ferrolith-cli: warning: ", 0) == 0) << line << "\n" << r.err;
            EXPECT_TRUE(!r.out.empty() || name == "wld-new" || name == "dxf-export") << line;
        }
    }
    EXPECT_GE(examples, 20);
    EXPECT_EQ(golden::RunCli({"help", "nosuch"}).code, 2);
    const Result version = golden::RunCli({"--version"});
    EXPECT_EQ(version.code, 0);
    EXPECT_EQ(version.out.rfind("ferrolith-cli ", 0), 0u);
}

// A bad value is one line on stderr and nothing on stdout even when the
// argument holds a newline (the golden cases check the rule for the rest); a
// wrong shape adds the usage line with every option.
TEST(CliErrors, OneLinePerBadValue) {
    const std::vector<std::vector<std::string>> cases = {
        {"weld-c", "1", "a\nb", "0", "0", "0"},
        {"bolt-c", "4\n", "2", "3", "3", "6", "0"},
        {"capacity", "examples/angle-left.wld", "--method", "x\ny"},
        {"calc", "1\n2"},
    };
    for (const auto& args : cases) {
        const Result r = golden::RunCli(args);
        EXPECT_EQ(r.code, 2) << args[0] << " " << args[1];
        EXPECT_EQ(r.out, "");
        EXPECT_EQ(Lines(r.err), 1u) << r.err;
        EXPECT_EQ(r.err.rfind("ferrolith-cli: ", 0), 0u) << r.err;
    }
    const Result shape = golden::RunCli({"capacity"});
    EXPECT_EQ(shape.code, 2);
    EXPECT_EQ(Lines(shape.err), 2u) << shape.err;
    for (const char* option : {"--electrode", "--size", "--method", "--strip", "--max-passes", "--verbose", "--format"})
        EXPECT_NE(shape.err.find(option), std::string::npos) << option;
}

// A layout that is not read says why, in one line.
TEST(CliErrors, UnreadLayoutSaysWhy) {
    namespace fs = std::filesystem;
    const fs::path dir = fs::temp_directory_path() / ("ferrolith-cli-unread-" + std::to_string(getpid()));
    fs::create_directories(dir / "folder.wld");
    std::ofstream(dir / "empty.wld").close();
    std::ofstream(dir / "damaged.wld") << "not a layout";
    std::ofstream(dir / "big.wld").close();
    fs::resize_file(dir / "big.wld", 8 << 20);
    fs::copy_file(FERROLITH_GOLDEN_DIR "/../../examples/angle-left.wld", dir / "locked.wld");
    fs::permissions(dir / "locked.wld", fs::perms::none);
    const std::vector<std::pair<std::string, std::string>> cases = {
        {"none.wld", "no such file"}, {"folder.wld", "not a regular file"}, {"empty.wld", "empty"},
        {"damaged.wld", "damaged"},   {"big.wld", "too large"},             {"locked.wld", "no permission"}};
    for (const auto& [name, cause] : cases) {
        if (name == "locked.wld" && geteuid() == 0) continue;  // permissions do not hold for root
        const std::string path = (dir / name).string();
        const Result r = golden::RunCli({"capacity", path});
        EXPECT_EQ(r.code, 1) << name;
        EXPECT_EQ(r.err, "ferrolith-cli: cannot read layout " + path + ": " + cause + "\n");
    }
    fs::remove_all(dir);
}

// A save past the process's file-size limit is a full disk: one line, exit 1,
// the old file as it was and no temporary file left.
TEST(CliErrors, SavePastTheFileSizeLimitIsAFullDisk) {
    namespace fs = std::filesystem;
    const fs::path dir = fs::temp_directory_path() / ("ferrolith-cli-fsize-" + std::to_string(getpid()));
    fs::create_directories(dir);
    const std::string out = (dir / "x.wld").string();
    ASSERT_EQ(golden::RunCli({"wld-new", out, "--line", "0,0,0,6"}).code, 0);
    const auto before = fs::file_size(out);
    std::string lines;
    for (int i = 0; i < 40; ++i) lines += " --line 0," + std::to_string(i) + ",6," + std::to_string(i);
    // 1 block of 512 bytes: the old file fits, a layout of 40 lines does not.
    const std::string cmd = "ulimit -f 1 && exec " FERROLITH_CLI " wld-new " + out + lines + " 2>&1";
    FILE* pipe = popen(cmd.c_str(), "r");
    ASSERT_NE(pipe, nullptr);
    std::string said;
    char buf[512];
    // A build with line coverage adds its own complaints: they are not the program's.
    while (fgets(buf, sizeof buf, pipe) != nullptr)
        if (std::string_view(buf).rfind("libgcov", 0) != 0) said += buf;
    const int status = pclose(pipe);
    ASSERT_TRUE(WIFEXITED(status)) << "ended by signal " << WTERMSIG(status);
    EXPECT_EQ(WEXITSTATUS(status), 1);
    EXPECT_EQ(said, "ferrolith-cli: cannot write " + out + ": Error No. 61:  Disk full\n");
    EXPECT_EQ(fs::file_size(out), before);
    EXPECT_EQ(std::distance(fs::directory_iterator(dir), fs::directory_iterator()), 1);
    fs::remove_all(dir);
}

// The progress line: nothing in the first second or off a terminal, redrawn
// at most four times a second, cleared at the end.
TEST(CliProgress, ShowsLateThrottledAndClears) {
    double now = 0.0;
    std::ostringstream term, pipe;
    {
        cli::Progress p("bolt-c", term, true, [&] { return now; });
        cli::Progress quiet("bolt-c", pipe, false, [&] { return now; });
        for (now = 0.0; now < 0.99; now += 0.01) p.Tick("pass 1");
        EXPECT_EQ(term.str(), "");
        now = 1.0;
        p.Tick("pass 7");
        quiet.Tick();
        EXPECT_EQ(term.str(), "\r\x1b[Kbolt-c: running, 1.0 s, pass 7");
        now = 1.1;
        p.Tick();
        EXPECT_EQ(term.str(), "\r\x1b[Kbolt-c: running, 1.0 s, pass 7");
        now = 1.3;
        p.Tick();
    }
    EXPECT_EQ(term.str(), "\r\x1b[Kbolt-c: running, 1.0 s, pass 7\r\x1b[Kbolt-c: running, 1.3 s\r\x1b[K");
    EXPECT_EQ(pipe.str(), "");
}

// The list follows the calculator's key table: every key with a token is
// listed and described, and every listed token is a key.
TEST(CalcKeys, ListFollowsTheKeyTable) {
    std::vector<std::string> listed;
    for (const auto& k : cli::CalcKeyList()) {
        EXPECT_FALSE(k.does.empty()) << k.token;
        if (k.engineKey) {
            EXPECT_TRUE(Calculator::Is_Key_Token(k.token)) << k.token;
        }
        listed.push_back(k.token.substr(0, k.token.find(':')));
    }
    for (const Calculator::KeyDef& k : Calculator::Key_Table()) {
        if (k.kind == Calculator::KeyKind::Window || k.kind == Calculator::KeyKind::Digit) continue;
        EXPECT_NE(std::find(listed.begin(), listed.end(), k.token), listed.end()) << k.token;
        EXPECT_NE(cli::KeyDescription(k.token), "") << k.token;
    }
}

}  // namespace
