// The contract tests of the Windows back ends.
#define DOCTEST_CONFIG_IMPLEMENT
#include "tests/contract/swallowed_faults_windows.h"

#include <doctest/doctest.h>

#include <cstdio>

int main(int argc, char** argv) {
    const SwallowedFaults faults;
    const int result = doctest::Context(argc, argv).run();
    if (faults.Seen() == 0) return result;
    std::fprintf(stderr, "%d faults in window procedures\n", faults.Seen());
    return 1;
}
