// A paragraph's characters with their widths and directions, before and after its lines are broken.
#pragma once

#include "common/bidi_levels.h"
#include "platform/line_layout.h"

class NoneStyle : public PreparedStyle {
  public:
    NoneStyle(const TextStyle& style, double dpi, int resolution)
        : style_(style), pixels_(style.font.points * dpi / 72), resolution_(resolution) {}
    const TextStyle& Style() const { return style_; }
    double Ascent() const { return 0.8 * pixels_; }
    double Descent() const { return 0.2 * pixels_; }
    double CharacterWidth() const {
        return style_.baseline == TextBaseline::Normal ? pixels_ / 2 : pixels_ / 3;
    }
    int Resolution() const { return resolution_; }

  private:
    TextStyle style_;
    double pixels_; // the font's height
    int resolution_;
};

struct NoneCluster {
    enum class Kind { Visible, Space, Tab, SoftHyphen, Break, Box } kind = Kind::Visible;
    TextPos start = 0;
    const NoneStyle* style = nullptr;
    bool mayBreak = false; // in front of it
    BidiLevel level = 0;
    double width = 0;
    double left = 0; // in its line
    TabLeader leader = TabLeader::None;
};

struct NoneClusters {
    std::u16string text; // with object replacement characters for boxes
    std::vector<NoneCluster> all;
    std::vector<BidiLevel> levels; // of each unit

    std::size_t Count() const { return all.size(); }
    TextPos StartOf(std::size_t index) const {
        return index < all.size() ? all[index].start : TextPos(text.size());
    }
    std::size_t
    IndexAt(TextPos position) const; // of the one around it; the count at the text's end
};

NoneClusters ShapeClusters(const ParagraphText&);
