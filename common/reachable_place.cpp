#include "common/reachable_place.h"

#include <algorithm>
#include <cmath>
#include <cstdint>

namespace {

// Pixels of the screen.
constexpr int maxCoordinate = 32767; // where window systems can place
constexpr int maxExtent = 16384;     // beyond it X11 and the drawing buffers give up
// Pixels at 96 dpi.
constexpr double minWidth = 160, minHeight = 100;
constexpr double titleHeight = 30;
constexpr double margin = 8; // at the screen's edges, for a frame that the window does not know of
constexpr double gripWidth = 80, gripHeight = 12; // of the title bar, to drag it by

Rect Common(const Rect& a, const Rect& b) {
    const int left = std::max(a.left, b.left), top = std::max(a.top, b.top);
    const int right = std::min(a.left + a.width, b.left + b.width);
    const int bottom = std::min(a.top + a.height, b.top + b.height);
    return {left, top, std::max(right - left, 0), std::max(bottom - top, 0)};
}

std::int64_t Area(const Rect& rectangle) {
    return std::int64_t{rectangle.width} * rectangle.height;
}

// Between the middles, squared, in half pixels.
std::int64_t Distance(const Rect& a, const Rect& b) {
    const std::int64_t x = 2 * (a.left - b.left) + a.width - b.width;
    const std::int64_t y = 2 * (a.top - b.top) + a.height - b.height;
    return x * x + y * y;
}

const Rect& Nearest(const Rect& place, const std::vector<Rect>& screens) {
    return *std::ranges::min_element(screens, [&](const Rect& a, const Rect& b) {
        const auto shownOnA = Area(Common(place, a)), shownOnB = Area(Common(place, b));
        if (shownOnA != shownOnB) return shownOnA > shownOnB;
        return Distance(place, a) < Distance(place, b);
    });
}

Rect Inside(const Rect& screen, int edge) {
    const int x = std::min(edge, screen.width / 4), y = std::min(edge, screen.height / 4);
    return {screen.left + x, screen.top + y, screen.width - 2 * x, screen.height - 2 * y};
}

Rect Within(Rect place, const Rect& screen) {
    place.width = std::min(place.width, screen.width);
    place.height = std::min(place.height, screen.height);
    place.left = std::clamp(place.left, screen.left, screen.left + screen.width - place.width);
    place.top = std::clamp(place.top, screen.top, screen.top + screen.height - place.height);
    return place;
}

} // namespace

Rect ReachablePlace(const Rect& asked, const std::vector<Rect>& screens, double scale) {
    const auto pixels = [&](double at96) { return static_cast<int>(std::lround(at96 * scale)); };
    const Rect place{std::clamp(asked.left, -maxCoordinate, maxCoordinate),
                     std::clamp(asked.top, -maxCoordinate, maxCoordinate),
                     std::clamp(asked.width, pixels(minWidth), maxExtent),
                     std::clamp(asked.height, pixels(minHeight), maxExtent)};
    const Rect title{place.left, place.top, place.width, pixels(titleHeight)};
    const auto hasTitle = [&](const Rect& screen) {
        const Rect shown = Common(title, screen);
        return shown.width >= pixels(gripWidth) && shown.height >= pixels(gripHeight);
    };
    if (screens.empty() || std::ranges::any_of(screens, hasTitle)) return place;
    return Within(place, Inside(Nearest(place, screens), pixels(margin)));
}

Rect RequestedBounds(const std::optional<ShownInstead>& instead, const Rect& now) {
    return instead && instead->shown == now ? instead->asked : now;
}
