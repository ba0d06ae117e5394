// The headless canvas: a record of what was drawn on it, in order.
#pragma once

#include "platform/canvas.h"
#include "platform/line_layout.h"

#include <string>
#include <vector>

struct NoneDrawing {
    enum class Kind { Fill, Tint, Text, Leader } kind = Kind::Fill;
    Rect rect; // of a fill or a tint; of text the clip
    Color color = 0;
    // Of text and leaders only.
    std::u16string text = {}; // in the order of reading
    int left = 0, baseline = 0;
    bool oneColor = false;
    std::vector<Rect> within = {}, without = {};
};

class NoneCanvas : public Canvas {
  public:
    void FillRect(const Rect& rect, Color color) override {
        drawings.push_back({NoneDrawing::Kind::Fill, rect, color});
    }
    void TintRect(const Rect& rect, Color color) override {
        drawings.push_back({NoneDrawing::Kind::Tint, rect, color});
    }
    void DrawLine(std::u16string text, int left, int baseline, const LinePaint& paint,
                  NoneDrawing::Kind kind = NoneDrawing::Kind::Text) {
        drawings.push_back({kind,
                            paint.clip,
                            paint.text,
                            std::move(text),
                            left,
                            baseline,
                            paint.oneColor,
                            {paint.within.begin(), paint.within.end()},
                            {paint.without.begin(), paint.without.end()}});
    }

    std::vector<NoneDrawing> drawings;
};
