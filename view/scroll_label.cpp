#include "view/scroll_label.h"

#include "view/one_line.h"

#include <algorithm>
#include <cmath>

std::u16string TextOf(const ScrollLabel& label) {
    std::u16string text;
    for (const char digit : std::to_string(label.percent))
        text += static_cast<char16_t>(digit);
    text += u" %";
    return label.heading.empty() ? text : text + u" \u2013 " + label.heading;
}

void PaintScrollLabel(Canvas& canvas, LineLayout& lines, const SystemStyle& system,
                      const ScrollLabel& label, Size view) {
    TextStyle style;
    style.font.family = system.fontFamily;
    style.font.points = system.fontPoints;
    const StyleHandle handle = lines.Prepare(style);
    const FontMetrics metrics = lines.Metrics(*handle);
    const int height = int(std::ceil(metrics.Height())), space = height / 2;
    const auto text =
        LayOutOneLine(lines, handle, TextOf(label), std::max(view.width / 2 - 2 * space, height));
    const Size box{int(std::ceil(text->Line(0).width)) + 2 * space, height + space};
    const Point corner{std::max(0, view.width - box.width - space),
                       int(label.share * std::max(0, view.height - box.height))};
    canvas.FillRect({corner.x, corner.y, box.width, box.height}, system.selection.background);
    const LinePaint paint{.text = system.selection.text,
                          .clip = {corner.x, corner.y, box.width, box.height}};
    text->Draw(canvas, 0, corner.x + space, corner.y + space / 2 + int(std::lround(metrics.ascent)),
               paint);
}
