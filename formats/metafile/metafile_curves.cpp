#include "formats/metafile/metafile_curves.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace {
constexpr int circleSteps = 72, bezierSteps = 12;
constexpr double pi = std::numbers::pi;

// Angles are in the usual sense, with y downward: growing ones go counterclockwise as it is seen.
MetaPoint OnEllipse(const MetaBox& box, double angle) {
    const double x = (box.left + box.right) / 2, y = (box.top + box.bottom) / 2;
    return {x + (box.right - box.left) / 2 * std::cos(angle),
            y - (box.bottom - box.top) / 2 * std::sin(angle)};
}

double AngleOf(const MetaBox& box, MetaPoint point) {
    const double width = box.right - box.left, height = box.bottom - box.top;
    if (width == 0 || height == 0) return 0;
    return std::atan2(-(point.y - (box.top + box.bottom) / 2) / height,
                      (point.x - (box.left + box.right) / 2) / width);
}
} // namespace

MetaPoints EllipsePoints(const MetaBox& box) {
    MetaPoints points;
    for (int i = 0; i < circleSteps; ++i)
        points.push_back(OnEllipse(box, 2 * pi * i / circleSteps));
    return points;
}

MetaPoints ArcPoints(const MetaBox& box, MetaPoint start, MetaPoint end) {
    const double from = AngleOf(box, start);
    double turn = AngleOf(box, end) - from;
    if (turn <= 0) turn += 2 * pi;
    MetaPoints points;
    for (int i = 0; i <= circleSteps; ++i)
        points.push_back(OnEllipse(box, from + turn * i / circleSteps));
    return points;
}

MetaPoints PiePoints(const MetaBox& box, MetaPoint start, MetaPoint end) {
    MetaPoints points = ArcPoints(box, start, end);
    points.push_back({(box.left + box.right) / 2, (box.top + box.bottom) / 2});
    return points;
}

MetaPoints RoundedBoxPoints(const MetaBox& box, double cornerWidth, double cornerHeight) {
    if (cornerWidth == 0 || cornerHeight == 0)
        return {{box.left, box.top},
                {box.right, box.top},
                {box.right, box.bottom},
                {box.left, box.bottom}};
    const double width = std::copysign(
        std::min(std::abs(cornerWidth), std::abs(box.right - box.left)), box.right - box.left);
    const double height = std::copysign(
        std::min(std::abs(cornerHeight), std::abs(box.bottom - box.top)), box.bottom - box.top);
    const MetaBox corners[] = {
        {box.right - width, box.top, box.right, box.top + height},
        {box.left, box.top, box.left + width, box.top + height},
        {box.left, box.bottom - height, box.left + width, box.bottom},
        {box.right - width, box.bottom - height, box.right, box.bottom},
    };
    constexpr int steps = circleSteps / 4;
    MetaPoints points;
    for (int corner = 0; corner < 4; ++corner)
        for (int i = 0; i <= steps; ++i)
            points.push_back(OnEllipse(corners[corner], pi / 2 * (corner + double(i) / steps)));
    return points;
}

MetaPoints BezierPoints(const MetaPoints& points) {
    MetaPoints line;
    if (!points.empty()) line.push_back(points.front());
    for (std::size_t i = 0; i + 3 < points.size(); i += 3) {
        const MetaPoint &a = points[i], &b = points[i + 1], &c = points[i + 2], &d = points[i + 3];
        for (int step = 1; step <= bezierSteps; ++step) {
            const double t = double(step) / bezierSteps, u = 1 - t;
            const double wa = u * u * u, wb = 3 * u * u * t, wc = 3 * u * t * t, wd = t * t * t;
            line.push_back({wa * a.x + wb * b.x + wc * c.x + wd * d.x,
                            wa * a.y + wb * b.y + wc * c.y + wd * d.y});
        }
    }
    return line;
}
