// The one callback type long loops call to let waiting window events run.
// An empty function means there is nothing to serve (headless runs, tests).
#pragma once

#include <functional>

namespace shell {

using YieldFn = std::function<void()>;

// Calls yield when there is one.
inline void YieldNow(const YieldFn& yield) {
    if (yield) yield();
}

}  // namespace shell
