// Reading with the hands free: the text moves up by itself.
#pragma once

struct AutoScroll {
    bool running = false;
    int speed = 4;   // 0 to maxScrollSpeed; kept while the program runs
    int endedBy = 0; // the key that ended it and is still down
};

constexpr int maxScrollSpeed = 11;

// How a speed is carried out on a screen of that resolution: a step of pixels, every so many
// milliseconds. Steps are single pixels as long as a screen can show each.
struct ScrollStep {
    int pixels = 1, interval = 16;
    bool operator==(const ScrollStep&) const = default;
};
ScrollStep StepOf(int speed, double dpi);

// What a pressed key means while it runs.
enum class AutoScrollKey { Nothing, Faster, Slower, End };
AutoScrollKey AutoScrollKeyOf(int keyCode, int shift);
