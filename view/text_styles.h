// The styles that a text is shown in: the document's, with the style of the view over them.
#pragma once

#include "formats/document.h"
#include "platform/line_layout.h"
#include "view/view_style.h"

#include <cstdint>
#include <map>
#include <optional>
#include <set>
#include <tuple>
#include <utility>
#include <vector>

TextStyle StyleOf(const ViewFont& font, const SystemStyle& system);

// The colour that text without a colour of its own is shown in.
Color PlainTextColor(const ViewStyle& view, const SystemStyle& system);

// The background that a text's paragraph or table cell gives it, if any.
std::optional<Color> ShadingAt(const Document& document, TextPos position);

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
    struct Prepared {
        CharStyle style;
        Color background = 0;
        Shown shown;
    };
    using FontKey = std::tuple<std::uint16_t, std::uint16_t, bool, bool>;

    // Texts in one style are shown in another colour where the background under them hides the
    // style's.
    Shown Prepare(const CharStyle& style, Color background);
    TextStyle Resolve(const CharStyle& requested, Color background);
    CharStyle WithFontLimit(CharStyle style);
    TextFont FontOf(const CharStyle& style) const;
    std::optional<Color> Foreground(const CharStyle& style, Color background) const;

    const Document& document_;
    const ViewStyle& view_;
    const SystemStyle& system_;
    LineLayout& layout_;
    std::optional<Shown> plain_;
    std::vector<std::optional<Shown>> shown_;               // indexed by style; created on demand
    std::map<std::pair<std::size_t, Color>, Shown> shaded_; // by style and shading; likewise
    std::optional<Prepared> last_;                          // the last one created
    std::optional<std::pair<StyleHandle, StyleHandle>> smaller_; // the last one, of which style
    std::set<FontKey> fonts_;                                    // in use, of the document
    std::set<std::uint16_t> families_;
};
