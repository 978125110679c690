// Case files of the calculator's core tests, in this folder: one case a line,
// "input -> expected", "#" starting a comment; other lines are ignored.
#pragma once

#include <gtest/gtest.h>

#include <fstream>
#include <functional>
#include <string>

#include "shell/core/Primitives.h"

namespace calctest {

// Calls `each` with the input and the trimmed expected text of every case of
// `name`, under a trace naming the file and line; gives the number of cases.
inline int ForEachCase(const std::string& name,
                       const std::function<void(const std::string&, const std::string&)>& each) {
    std::ifstream in(std::string(FERROLITH_TEST_DATA) + "/" + name);
    EXPECT_TRUE(in.good()) << name;
    int n = 0, cases = 0;
    for (std::string line; std::getline(in, line) && ++n;) {
        line = line.substr(0, line.find('#'));
        if (line.find("->") == std::string::npos) continue;
        SCOPED_TRACE(name + ":" + std::to_string(n) + ": " + line);
        each(line.substr(0, line.find("->")), prim::Trim(line.substr(line.find("->") + 2)));
        ++cases;
    }
    return cases;
}

}  // namespace calctest
