// What a print job draws its pages on, in tests.
#pragma once

#include "pane_bench.h"
#include "view/print_flow.h"

#include <deque>

// Sheets of 400 by 300 pixels at 96 dpi, which are remembered.
class Paper : public PrintDevice {
  public:
    double Dpi() const override { return 96; }
    Size Page() const override { return {400, 300}; }
    Canvas* BeginPage() override {
        if (static_cast<int>(pages.size()) == failAt) return nullptr;
        pages.emplace_back();
        return &pages.back();
    }
    void ClipTo(const Rect& clip) override { clips.push_back(clip); }
    bool EndPage() override { return true; }
    bool OnProgress(int percent) override {
        percents.push_back(percent);
        return static_cast<int>(percents.size()) <= endAfter;
    }
    std::vector<std::u16string> Texts(std::size_t page) const {
        std::vector<std::u16string> texts;
        for (const NoneDrawing& drawing : pages.at(page).drawings)
            if (drawing.kind == NoneDrawing::Kind::Text) texts.push_back(drawing.text);
        return texts;
    }

    std::deque<NoneCanvas> pages; // a canvas stays where it is
    std::vector<Rect> clips;
    std::vector<int> percents;
    int failAt = -1, endAfter = 1'000'000;
};
