// A condition that the fuzzed code must meet; aborts, which libFuzzer reports, when it does not.
#pragma once

#include <cstdio>
#include <cstdlib>
#include <string>

inline void Require(bool holds, const char* what = "", const std::string& detail = "") {
    if (holds) return;
    std::fprintf(stderr, "%s: %s\n", what, detail.c_str());
    std::abort();
}
