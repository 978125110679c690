// The golden files of tests/cli. Each *.golden file holds cases:
//
//   # a comment
//   $ command<TAB>arg<TAB>arg        (arguments separated by tabs, kept verbatim;
//                                     a leading "@ROOT@" is the source tree)
//   expected stdout line
//   ...
//   ! expected stderr line           (a warning of a run, or why it failed)
//   ? 0                              (expected exit code)
//
// Blank lines between cases are ignored; an expected output of nothing is
// written as no lines between "$" and "?".
//
// The cases are what is particular to the program: its option parsing,
// output forms, messages and exit codes. What the core computes is tested
// in-process by the core's own tables.
#pragma once

#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <ostream>
#include <string>
#include <vector>

extern char** environ;

namespace golden {

struct GoldenCase {
    std::string file;
    int line = 0;
    std::vector<std::string> args;  // args[0] is the command
    std::string expected;
    std::string expectedErr;  // the "! " lines
    int exitCode = 0;
};

// Names a case by file and line in test output.
inline void PrintTo(const GoldenCase& c, std::ostream* os) { *os << c.file << ":" << c.line; }

inline std::vector<std::string> SplitTabs(const std::string& s) {
    std::vector<std::string> out(1);
    for (char c : s) {
        if (c == '\t')
            out.emplace_back();
        else
            out.back() += c;
    }
    return out;
}

// The cases of one file; `root` replaces "@ROOT@" at the start of an argument.
inline std::vector<GoldenCase> LoadFile(const std::filesystem::path& f, const std::string& root) {
    std::vector<GoldenCase> cases;
    std::ifstream in(f);
    std::string line;
    int n = 0;
    GoldenCase* open = nullptr;
    while (std::getline(in, line)) {
        ++n;
        if (open == nullptr) {
            if (line.rfind("$ ", 0) == 0) {
                std::vector<std::string> args = SplitTabs(line.substr(2));
                for (auto& a : args)
                    if (a.rfind("@ROOT@", 0) == 0) a = root + a.substr(6);
                cases.push_back({f.filename().string(), n, args, "", "", 0});
                open = &cases.back();
            }
            continue;
        }
        if (line.rfind("? ", 0) == 0) {
            open->exitCode = std::stoi(line.substr(2));
            open = nullptr;
        } else if (line.rfind("! ", 0) == 0) {
            open->expectedErr += line.substr(2) + "\n";
        } else {
            open->expected += line + "\n";
        }
    }
    return cases;
}

struct Result {
    int code = -1;
    std::string out, err;
};

// Runs `argv` (the program first) in `dir`; stdout through a pipe, stderr
// into a file.
inline Result Run(std::vector<std::string> argv, const std::string& dir = FERROLITH_GOLDEN_DIR "/../..") {
    Result r;
    char errPath[] = "/tmp/ferrolith-cli-stderr-XXXXXX";
    const int errFd = mkstemp(errPath);
    int fds[2];
    if (errFd < 0 || pipe(fds) != 0) return r;
    posix_spawn_file_actions_t fa;
    posix_spawn_file_actions_init(&fa);
    posix_spawn_file_actions_adddup2(&fa, fds[1], 1);
    posix_spawn_file_actions_adddup2(&fa, errFd, 2);
    posix_spawn_file_actions_addclose(&fa, fds[0]);
    posix_spawn_file_actions_addchdir_np(&fa, dir.c_str());
    std::vector<char*> cargv;
    for (auto& a : argv) cargv.push_back(a.data());
    cargv.push_back(nullptr);
    pid_t pid = 0;
    const int spawned = posix_spawn(&pid, argv[0].c_str(), &fa, nullptr, cargv.data(), environ);
    posix_spawn_file_actions_destroy(&fa);
    close(fds[1]);
    char buf[4096];
    ssize_t n;
    while (spawned == 0 && (n = read(fds[0], buf, sizeof buf)) > 0) r.out.append(buf, static_cast<size_t>(n));
    close(fds[0]);
    int status = 0;
    if (spawned == 0 && waitpid(pid, &status, 0) == pid && WIFEXITED(status)) r.code = WEXITSTATUS(status);
    std::ifstream e(errPath);
    r.err.assign(std::istreambuf_iterator<char>(e), {});
    close(errFd);
    unlink(errPath);
    return r;
}

// Runs ferrolith-cli with the arguments, no shell involved.
inline Result RunCli(const std::vector<std::string>& args) {
    std::vector<std::string> argv = {FERROLITH_CLI};
    argv.insert(argv.end(), args.begin(), args.end());
    return Run(argv);
}

}  // namespace golden
