// What a fuzz target holds the code under test to. A property that does not hold aborts the run,
// which libFuzzer reports as a crash, with the stack of the failed check and the input saved.
#pragma once

#include <cstdio>
#include <cstdlib>

namespace fuzz {

inline void require(bool holds, const char* property)
{
    if (holds)
        return;
    // stdout, which every target keeps open (the array target runs with stderr closed).
    std::printf("fuzz check failed: %s\n", property);
    std::fflush(stdout);
    std::abort();
}

}  // namespace fuzz
