// The styles that a text is shown in: the document's, with the style of the view over them.
#pragma once

#include "formats/document.h"
#include "platform/line_layout.h"
#include "view/view_style.h"

#include <cstdint>
#include <optional>
#include <set>
#include <string>
#include <tuple>
#include <utility>
#include <vector>

TextStyle StyleOf(const ViewFont& font, const SystemStyle& system);

// The colour of text without a colour of its own.
Color PlainTextColor(const ViewStyle& view, const SystemStyle& system);

class TextStyles {
  public:
    struct Shown {
        TextStyle style;
        StyleHandle handle;
    };

    // The arguments must outlive this object. Call `Reset` when one of them has changed.
    TextStyles(const Document& document, const ViewStyle& view, const SystemStyle& system,
               LineLayout& layout);
    void Reset();
    void ClearFonts(); // for a new text; see the limits in text_styles.cpp

    const Shown& Plain(); // the view's font, for a text without styles
    const Shown& At(TextPos position);
    // In small capitals.
    const StyleHandle& SmallerAt(TextPos position);

  private:
    using FontKey = std::tuple<std::uint16_t, std::uint16_t, bool, bool>;

    Shown Prepare(const CharStyle& style);
    TextStyle Resolve(const CharStyle& style);
    CharStyle WithFontLimit(CharStyle style);
    TextFont FontOf(const CharStyle& style) const;
    std::optional<Color> Foreground(const CharStyle& style) const;

    const Document& document_;
    const ViewStyle& view_;
    const SystemStyle& system_;
    LineLayout& layout_;
    std::optional<Shown> plain_;
    std::vector<std::optional<Shown>> shown_;         // indexed by style; created on demand
    std::optional<std::pair<CharStyle, Shown>> last_; // the last one created
    std::optional<std::pair<StyleHandle, StyleHandle>> smaller_; // the last one, of which style
    std::set<FontKey> fonts_;                                    // in use, of the document
    std::set<std::uint16_t> families_;
};
