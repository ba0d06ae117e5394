// Automatic scrolling.
#pragma once

struct AutoScroll {
    bool running = false;
    int speed = 4;   // 0 to maxScrollSpeed; kept while the program runs
    int endedBy = 0; // the key that ended it and is still down
};

constexpr int maxScrollSpeed = 11;

// A step of some pixels at each tick of a timer, whose interval is in milliseconds. Steps are
// single pixels as long as a screen's refresh rate can show each.
struct ScrollStep {
    int pixels = 1, interval = 16;
    bool operator==(const ScrollStep&) const = default;
};
ScrollStep StepOf(int speed, double dpi);

// What a pressed key means while it runs.
enum class AutoScrollKey { Nothing, Faster, Slower, End };
AutoScrollKey AutoScrollKeyOf(int keyCode, int shift);
