// Golden files for ferrolith-cli. Each *.golden file holds cases:
//
//   # a comment
//   $ command<TAB>arg<TAB>arg        (arguments separated by tabs, kept verbatim)
//   expected stdout line
//   ...
//   ? 0                              (expected exit code)
//
// Blank lines between cases are ignored; an expected output of nothing is
// written as no lines between "$" and "?".
#include <gtest/gtest.h>
#include <fcntl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>
#include <vector>

namespace {

struct GoldenCase {
    std::string file;
    int line = 0;
    std::vector<std::string> args;
    std::string expected;
    int exitCode = 0;
};

std::vector<std::string> SplitTabs(const std::string& s) {
    std::vector<std::string> out;
    std::string cur;
    for (char c : s) {
        if (c == '\t') {
            out.push_back(cur);
            cur.clear();
        } else {
            cur += c;
        }
    }
    out.push_back(cur);
    return out;
}

std::vector<GoldenCase> LoadCases() {
    std::vector<GoldenCase> cases;
    std::vector<std::filesystem::path> files;
    for (const auto& e : std::filesystem::directory_iterator(FERROLITH_GOLDEN_DIR))
        if (e.path().extension() == ".golden") files.push_back(e.path());
    std::sort(files.begin(), files.end());
    for (const auto& f : files) {
        std::ifstream in(f);
        std::string line;
        int n = 0;
        GoldenCase* open = nullptr;
        while (std::getline(in, line)) {
            ++n;
            if (open == nullptr) {
                if (line.rfind("$ ", 0) == 0) {
                    cases.push_back({f.filename().string(), n, SplitTabs(line.substr(2)), "", 0});
                    open = &cases.back();
                }
                continue;
            }
            if (line.rfind("? ", 0) == 0) {
                open->exitCode = std::stoi(line.substr(2));
                open = nullptr;
            } else {
                open->expected += line + "\n";
            }
        }
    }
    return cases;
}

// Runs the program with the arguments, no shell involved; gives stdout and the exit code.
int RunCli(const std::vector<std::string>& args, std::string& out) {
    int fds[2];
    if (pipe(fds) != 0) return -1;
    pid_t pid = fork();
    if (pid == 0) {
        dup2(fds[1], 1);
        // The messages on stderr are not part of the golden output.
        int devnull = open("/dev/null", O_WRONLY);
        if (devnull >= 0) dup2(devnull, 2);
        close(fds[0]);
        close(fds[1]);
        std::vector<char*> argv;
        std::string prog = FERROLITH_CLI;
        argv.push_back(prog.data());
        std::vector<std::string> copy = args;
        for (auto& a : copy) argv.push_back(a.data());
        argv.push_back(nullptr);
        execv(prog.c_str(), argv.data());
        _exit(127);
    }
    close(fds[1]);
    char buf[4096];
    ssize_t r;
    while ((r = read(fds[0], buf, sizeof buf)) > 0) out.append(buf, static_cast<size_t>(r));
    close(fds[0]);
    int status = 0;
    waitpid(pid, &status, 0);
    return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
}

// Names a case by file and line in test output.
void PrintTo(const GoldenCase& c, std::ostream* os) { *os << c.file << ":" << c.line; }

class CliGolden : public ::testing::TestWithParam<GoldenCase> {};

TEST_P(CliGolden, Replays) {
    const GoldenCase& c = GetParam();
    std::string out;
    int rc = RunCli(c.args, out);
    EXPECT_EQ(rc, c.exitCode) << c.file << ":" << c.line;
    EXPECT_EQ(out, c.expected) << c.file << ":" << c.line;
}

INSTANTIATE_TEST_SUITE_P(Golden, CliGolden, ::testing::ValuesIn(LoadCases()),
                         [](const ::testing::TestParamInfo<GoldenCase>& info) {
                             std::string name = info.param.file + "_" + std::to_string(info.param.line);
                             for (char& ch : name)
                                 if (!isalnum(static_cast<unsigned char>(ch))) ch = '_';
                             return name;
                         });

}  // namespace
