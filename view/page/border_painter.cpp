#include "view/page/border_painter.h"

#include "view/geometry.h"
#include "view/page/page_background.h"

#include <algorithm>
#include <cmath>

namespace {
constexpr int minDouble = 3; // pixels of a double line; a thinner one is a single one

// A side's rectangle along the box, from its corner on.
struct Side {
    Rect box;
    bool isUpright = false;
    int Width() const { return isUpright ? box.width : box.height; }
    int Length() const { return isUpright ? box.height : box.width; }
    Rect Part(int from, int length) const {
        if (isUpright) return {box.left, box.top + from, box.width, length};
        return {box.left + from, box.top, length, box.height};
    }
    Rect Stripe(int from, int width) const {
        if (isUpright) return {box.left + from, box.top, width, box.height};
        return {box.left, box.top + from, box.width, width};
    }
};

// As long as they are wide or more, with gaps of that length; a border may be millions of pixels
// long, so those out of sight are left out.
void PaintDashes(const BoxPaint& paint, const Side& side, int dash, CssColor color) {
    const int start = side.isUpright ? side.box.top : side.box.left;
    const int from = (side.isUpright ? paint.clip.top : paint.clip.left) - start;
    const int to = (side.isUpright ? Bottom(paint.clip) : Right(paint.clip)) - start;
    for (int at = std::max(0, from / (2 * dash) * (2 * dash)); at < std::min(to, side.Length());
         at += 2 * dash)
        FillBox(paint, side.Part(at, std::min(dash, side.Length() - at)), color);
}

void PaintSide(const BoxPaint& paint, const Side& side, CssBorderStyle style, CssColor color) {
    const int width = side.Width();
    if (style == CssBorderStyle::Dotted) return PaintDashes(paint, side, width, color);
    if (style == CssBorderStyle::Dashed)
        return PaintDashes(paint, side, width < minDouble ? 3 * width : 2 * width, color);
    if (style != CssBorderStyle::Double || width < minDouble)
        return FillBox(paint, side.box, color);
    const int line = (width + 1) / 3;
    FillBox(paint, side.Stripe(0, line), color);
    FillBox(paint, side.Stripe(width - line, line), color);
}
} // namespace

void FillBox(const BoxPaint& paint, const Rect& box, CssColor color) {
    if (!IsDrawn(color)) return;
    const Rect seen = Intersection(box, paint.clip);
    if (seen.width > 0 && seen.height > 0) paint.canvas.FillRect(seen, color.Bgr());
}

void PaintBorders(const BoxPaint& paint, const CssBoxStyle& style, const Rect& box,
                  const CssSides<bool>& shown, int gapLeft, int gapRight) {
    const auto width = [&](CssSide side) {
        const float css = style.borderWidth[side];
        if (css <= 0 || !shown[side]) return 0;
        return std::max(1, int(std::lround(std::min(css * paint.scale, 1e8))));
    };
    const auto paintSide = [&](CssSide side, Rect where, bool isUpright) {
        if (where.width > 0 && where.height > 0)
            PaintSide(paint, {where, isUpright}, style.borderStyle[side], style.borderColor[side]);
    };
    const int top = width(cssTop), bottom = width(cssBottom);
    const int left = width(cssLeft), right = width(cssRight);
    if (gapLeft < gapRight) {
        paintSide(cssTop, {box.left, box.top, gapLeft - box.left, top}, false);
        paintSide(cssTop, {gapRight, box.top, Right(box) - gapRight, top}, false);
    } else {
        paintSide(cssTop, {box.left, box.top, box.width, top}, false);
    }
    paintSide(cssBottom, {box.left, Bottom(box) - bottom, box.width, bottom}, false);
    paintSide(cssLeft, {box.left, box.top, left, box.height}, true);
    paintSide(cssRight, {Right(box) - right, box.top, right, box.height}, true);
}
