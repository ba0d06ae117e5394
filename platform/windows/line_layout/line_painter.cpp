#include "platform/windows/line_layout/line_painter.h"

#include <algorithm>
#include <cmath>
#include <string>

namespace {

class Painter {
  public:
    Painter(WinCanvas& canvas, const PaintedLine& painted, int left, int baseline,
            const LinePaint& paint)
        : canvas_(canvas), painted_(painted), parts_(PartsOf(painted)), left_(left),
          baseline_(baseline), paint_(paint) {}

    void Paint() const;

  private:
    bool IsInClip(const PaintedPart&, const RECT& clip) const;
    void PaintBackground(const PaintedPart&) const;
    void PaintText(const PaintedPart&, Color) const;
    void PaintGlyphs(const PaintedPart&, int y) const;
    void PaintLeader(const PaintedPart&, int y) const;
    void PaintRule(const PaintedPart&, const TextRule&, int y, Color) const;

    WinCanvas& canvas_;
    const PaintedLine& painted_;
    const std::vector<PaintedPart> parts_;
    const int left_, baseline_;
    const LinePaint& paint_;
};

// Letters may reach beyond their place, italic ones above all.
bool Painter::IsInClip(const PaintedPart& part, const RECT& clip) const {
    const int margin = part.style->font->ascent + part.style->font->descent;
    return left_ + part.right + margin > clip.left && left_ + part.left - margin < clip.right;
}

void Painter::PaintBackground(const PaintedPart& part) const {
    const TextLine& line = painted_.line.line;
    const int ascent = static_cast<int>(line.ascent), descent = static_cast<int>(line.descent);
    canvas_.FillRect(
        {left_ + part.left, baseline_ - ascent, part.right - part.left, ascent + descent},
        *part.style->style.background);
}

void Painter::PaintGlyphs(const PaintedPart& part, int y) const {
    const HDC context = canvas_.Context();
    if (!part.run) { // a soft hyphen at the line's end; other gaps are empty
        SelectObject(context, part.style->font->handle.get());
        ExtTextOutW(context, left_ + part.left, y, 0, nullptr, L"-", 1, nullptr);
        return;
    }
    const GlyphRun& run = *part.run;
    const GlyphSpan span = GlyphsOf(run, part.start, part.end);
    const Uniscribe* const uniscribe = LoadUniscribe();
    if (span.first == span.end || !uniscribe) return;
    SelectObject(context, run.font->handle.get());
    uniscribe->textOut(context, &run.font->cache, left_ + part.left, y, 0, nullptr, &run.analysis,
                       nullptr, 0, &run.glyphs[span.first], static_cast<int>(span.end - span.first),
                       &run.advances[span.first], nullptr, &run.offsets[span.first]);
}

void Painter::PaintLeader(const PaintedPart& part, int y) const {
    const auto& tabs = painted_.line.tabs;
    const auto tab = std::find_if(tabs.begin(), tabs.end(),
                                  [&](const PlacedTab& each) { return each.unit == part.start; });
    const char16_t character = tab == tabs.end() ? u'\0' : LeaderCharacter(tab->stop.leader);
    if (character == 0) return;
    const HDC context = canvas_.Context();
    SelectObject(context, part.style->font->handle.get());
    const auto unit = static_cast<wchar_t>(character);
    SIZE size = {};
    GetTextExtentPoint32W(context, &unit, 1, &size);
    const LeaderSpan span = LeaderIn(part.left, part.right, size.cx, painted_.line.startEdge);
    if (span.count == 0) return;
    const std::wstring text(static_cast<std::size_t>(span.count), unit);
    const std::vector<INT> advances(text.size(), size.cx);
    ExtTextOutW(context, left_ + static_cast<int>(std::lround(span.left)), y, 0, nullptr,
                text.data(), static_cast<UINT>(span.count), advances.data());
}

void Painter::PaintRule(const PaintedPart& part, const TextRule& rule, int y, Color color) const {
    canvas_.FillRect({left_ + part.left, y - rule.top, part.right - part.left, rule.thickness},
                     color);
}

void Painter::PaintText(const PaintedPart& part, Color color) const {
    const UnitKind kind = painted_.text.units[part.start].kind;
    if (kind == UnitKind::Box) return;
    const WinStyle& style = *part.style;
    const int y = baseline_ - style.rise - style.raise;
    SetTextColor(canvas_.Context(), color);
    if (kind == UnitKind::Tab) PaintLeader(part, y);
    if (kind == UnitKind::Text || kind == UnitKind::SoftHyphen) PaintGlyphs(part, y);
    if (style.style.underline) PaintRule(part, style.font->underline, y, color);
    if (style.style.strikethrough) PaintRule(part, style.font->strikeout, y, color);
    if (style.style.overline)
        PaintRule(part, {style.font->ascent, style.font->underline.thickness}, y, color);
}

void Painter::Paint() const {
    RECT clip = {};
    if (GetClipBox(canvas_.Context(), &clip) == NULLREGION) return;
    const auto colorOf = [&](const PaintedPart& part) {
        return paint_.oneColor ? paint_.text : part.style->style.color.value_or(paint_.text);
    };
    for (const PaintedPart& part : parts_)
        if (!paint_.oneColor && part.style->style.background && IsInClip(part, clip))
            PaintBackground(part);
    for (const PaintedPart& part : parts_)
        if (IsInClip(part, clip)) PaintText(part, colorOf(part));
}

void ClipTo(HDC context, const Rect& rect) {
    const RECT area = ToRect(rect);
    IntersectClipRect(context, area.left, area.top, area.right, area.bottom);
}

// Regions are in pixels of the device, whose origin may not be the context's.
void ClipTo(HDC context, std::span<const Rect> rects) {
    const HRGN all = CreateRectRgn(0, 0, 0, 0), one = CreateRectRgn(0, 0, 0, 0);
    for (const Rect& rect : rects) {
        RECT area = ToRect(rect);
        LPtoDP(context, reinterpret_cast<POINT*>(&area), 2);
        SetRectRgn(one, area.left, area.top, area.right, area.bottom);
        CombineRgn(all, all, one, RGN_OR);
    }
    ExtSelectClipRgn(context, all, RGN_AND);
    DeleteObject(one);
    DeleteObject(all);
}

} // namespace

void PaintLine(WinCanvas& canvas, const PaintedLine& painted, int left, int baseline,
               const LinePaint& paint) {
    const HDC context = canvas.Context();
    const SavedContext saved(context);
    ClipTo(context, paint.clip);
    if (!paint.within.empty()) ClipTo(context, paint.within);
    for (const Rect& each : paint.without) {
        const RECT area = ToRect(each);
        ExcludeClipRect(context, area.left, area.top, area.right, area.bottom);
    }
    SetBkMode(context, TRANSPARENT);
    SetTextAlign(context, TA_LEFT | TA_BASELINE | TA_NOUPDATECP);
    Painter(canvas, painted, left, baseline, paint).Paint();
}
