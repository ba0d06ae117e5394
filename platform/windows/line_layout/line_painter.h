// Draws one line of a paragraph by GDI.
#pragma once

#include "platform/windows/line_layout/line_breaker.h"
#include "platform/windows/line_layout/win_canvas.h"

// What there is to draw.
struct PaintedLine {
    const TextUnits& text;
    const ShapedText& shaped;
    const std::vector<StyledRun>& styles;
    const BrokenLine& line;
    const std::vector<int>& before; // the widths of all units in front of each
};

void PaintLine(WinCanvas&, const PaintedLine&, int left, int baseline, const LinePaint&);

// Restores the clip, the font and all else that was set on a device context.
class SavedContext {
  public:
    explicit SavedContext(HDC context) : context_(context), saved_(SaveDC(context)) {}
    ~SavedContext() { RestoreDC(context_, saved_); }
    SavedContext(const SavedContext&) = delete;
    SavedContext& operator=(const SavedContext&) = delete;

  private:
    HDC context_;
    int saved_;
};

// Units of one style, of which all or none have glyphs, and those of one run.
struct PaintedPart {
    std::size_t start = 0, end = 0;
    int left = 0, right = 0; // in the line
    const WinStyle* style = nullptr;
    const GlyphRun* run = nullptr;
};

// In painted_parts.cpp, from left to right by piece.
std::vector<PaintedPart> PartsOf(const PaintedLine&);
