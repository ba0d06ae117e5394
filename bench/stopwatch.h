// Timing a piece of work, and a line of the table for it.
#pragma once

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <string>
#include <vector>

// Keeps the compiler from leaving out what makes a value that nobody reads.
template <typename Value>
void Keep(const Value& value) {
    asm volatile("" : : "g"(&value) : "memory");
}

// The median time of a piece of work in milliseconds, after one run to warm up.
template <typename Work>
double Time(Work work) {
    using Ticks = std::chrono::steady_clock;
    constexpr auto maxTime = std::chrono::milliseconds(400);
    constexpr std::size_t minRuns = 9, maxRuns = 400;
    work();
    std::vector<double> times;
    const auto begin = Ticks::now();
    while (times.size() < minRuns || (times.size() < maxRuns && Ticks::now() - begin < maxTime)) {
        const auto start = Ticks::now();
        work();
        times.push_back(std::chrono::duration<double, std::milli>(Ticks::now() - start).count());
    }
    const auto middle = times.begin() + static_cast<std::ptrdiff_t>(times.size() / 2);
    std::nth_element(times.begin(), middle, times.end());
    return *middle;
}

inline void TableHead(const char* title, const char* peer) {
    std::printf("\n%s\n%-52s %10s  as a ratio to %s\n", title, "", "ms", peer);
}

inline void Note(const std::string& text) {
    std::printf("%s\n", text.c_str());
}

inline void Row(const char* work, double time, double peer) {
    std::printf("%-52s %10.3f  %.2f\n", work, time, time / peer);
}

// With the speed in megabytes (of a million bytes) a second.
inline void RowOf(const char* work, double time, double peer, std::size_t bytes) {
    std::printf("%-52s %10.3f  %.2f   %.0f MB/s\n", work, time, time / peer,
                static_cast<double>(bytes) / time / 1000);
}
