// A progress line on stderr for long runs: shown only when stderr is a
// terminal, first after about a second, redrawn a few times a second, and
// cleared when the run ends, so pipes and files never see it.
#pragma once

#include <chrono>
#include <functional>
#include <iosfwd>
#include <string>

namespace cli {

class Progress {
public:
    using Clock = std::function<double()>;  // seconds

    // On std::cerr, active when stderr is a terminal.
    explicit Progress(std::string label);
    // For tests: any stream, terminal or not, any clock.
    Progress(std::string label, std::ostream& out, bool terminal, Clock clock);
    ~Progress();
    Progress(const Progress&) = delete;
    Progress& operator=(const Progress&) = delete;

    // Called often from the run; `detail` says how far it is ("pass 812").
    void Tick(const std::string& detail = {});
    // Clears the line if one is shown.
    void Clear();

private:
    std::string label_;
    std::ostream& out_;
    bool active_;
    Clock clock_;
    double start_ = 0.0;
    double lastDrawn_ = -1.0;
    bool shown_ = false;
};

}  // namespace cli
