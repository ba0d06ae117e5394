// What the headless line layout draws.
#include "platform/none/none_canvas.h"
#include "platform/none/none_text_lines.h"
#include "view/geometry.h"

#include <algorithm>
#include <cmath>

void NoneTextLines::FillBackgrounds(Canvas& canvas, const NoneLine& line, int left, int baseline,
                                    const Rect& clip) const {
    const int top = baseline - int(std::ceil(line.line.ascent)),
              bottom = baseline + int(std::ceil(line.line.descent));
    for (const std::size_t i : line.order) {
        const NoneCluster& each = Cluster(i);
        const auto background = each.style->Style().background;
        if (!background) continue;
        const int from = left + int(std::lround(each.left)),
                  to = left + int(std::lround(each.left + each.width));
        const Rect rect = Intersection({from, top, to - from, bottom - top}, clip);
        if (rect.width > 0 && rect.height > 0) canvas.FillRect(rect, *background);
    }
}

void NoneTextLines::DrawLeaders(NoneCanvas& canvas, const NoneLine& line, int left, int baseline,
                                const LinePaint& paint) const {
    for (const std::size_t i : line.order) {
        const NoneCluster& each = Cluster(i);
        const char16_t character = LeaderCharacter(each.leader);
        if (character == 0) continue;
        const LeaderSpan span = LeaderIn(each.left, each.left + each.width,
                                         each.style->CharacterWidth(), line.startEdge);
        canvas.DrawLine(std::u16string(std::size_t(span.count), character),
                        left + int(std::lround(span.left)), baseline, paint,
                        NoneDrawing::Kind::Leader);
    }
}

void NoneTextLines::Draw(Canvas& canvas, int index, int left, int baseline,
                         const LinePaint& paint) const {
    const NoneLine& line = At(index);
    if (!paint.oneColor) FillBackgrounds(canvas, line, left, baseline, paint.clip);
    const auto start = std::size_t(line.line.start),
               end = std::size_t(clusters_.StartOf(line.visibleEnd));
    auto* const record = dynamic_cast<NoneCanvas*>(&canvas);
    if (!record) return;
    record->DrawLine(clusters_.text.substr(start, end - start), left, baseline, paint);
    DrawLeaders(*record, line, left, baseline, paint);
}
