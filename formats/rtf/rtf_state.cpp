#include "formats/rtf/rtf_state.h"

#include "formats/rtf/rtf_limits.h"

#include <algorithm>
#include <utility>

namespace {

void ResetCharacters(RtfState& state) {
    const std::uint16_t link = state.chars.link; // a field's, not a format
    state.chars = {};
    state.chars.link = link;
    state.isHidden = false;
    state.font = nullptr;
}

void SetScript(CharStyle& style, Script script, bool on) {
    style.script = on ? script : Script::Normal;
}

void SetFont(RtfState& state, const RtfFont* font) {
    state.font = font;
    if (!font)
        state.chars.font = 0;
    else if (font->symbols == SymbolSet::None)
        state.chars.font = font->index;
}

void SetCapitals(CharStyle& style, Capitals capitals, bool on) {
    if (on)
        style.capitals = capitals;
    else if (style.capitals == capitals)
        style.capitals = Capitals::AsWritten;
}

void SetFontSize(CharStyle& style, std::int32_t halfPoints) {
    if (halfPoints > 0)
        style.halfPoints = static_cast<std::uint16_t>(std::min(halfPoints, maxRtfHalfPoints));
}

void AddTabStop(std::vector<TabStop>& stops, const TabStop& stop) {
    if (stop.position <= 0 || stops.size() == maxRtfTabStops) return;
    const auto place = std::lower_bound(
        stops.begin(), stops.end(), stop.position,
        [](const TabStop& each, std::int32_t position) { return each.position < position; });
    if (place != stops.end() && place->position == stop.position)
        *place = stop;
    else
        stops.insert(place, stop);
}

} // namespace

void ApplyCharacterWord(RtfState& state, const RtfWordEntry& entry, bool hasParameter,
                        std::int32_t parameter, const RtfFontTable& fonts,
                        const RtfColorTable& colors) {
    const bool on = !hasParameter || parameter != 0;
    CharStyle& style = state.chars;
    switch (entry.word) {
    case RtfWord::Plain: ResetCharacters(state); break;
    case RtfWord::Bold: style.bold = on; break;
    case RtfWord::Italic: style.italic = on; break;
    case RtfWord::Underline: style.underline = on; break;
    case RtfWord::NoUnderline: style.underline = false; break;
    case RtfWord::Strike: style.strikethrough = on; break;
    case RtfWord::Capitals: SetCapitals(style, static_cast<Capitals>(entry.value), on); break;
    case RtfWord::Hidden: state.isHidden = on; break;
    case RtfWord::Superscript:
    case RtfWord::Raised: SetScript(style, Script::Superscript, on); break;
    case RtfWord::Subscript:
    case RtfWord::Lowered: SetScript(style, Script::Subscript, on); break;
    case RtfWord::NormalScript: style.script = Script::Normal; break;
    case RtfWord::Font: SetFont(state, fonts.Find(parameter)); break;
    case RtfWord::FontSize: SetFontSize(style, parameter); break;
    case RtfWord::RunDirection: style.rightToLeft = entry.value != 0; break;
    case RtfWord::Foreground: {
        const RtfColor color = colors.At(parameter);
        style.foreground = color.value;
        style.autoForeground = color.isAutomatic;
        break;
    }
    case RtfWord::Background: {
        const RtfColor color = colors.At(parameter);
        style.background = color.value;
        style.autoBackground = color.isAutomatic;
        break;
    }
    default: break;
    }
}

void ApplyParagraphWord(RtfState& state, const RtfWordEntry& entry, bool hasParameter,
                        std::int32_t parameter, const RtfColorTable& colors) {
    const bool on = !hasParameter || parameter != 0;
    ParagraphStyle& style = state.paragraph;
    switch (entry.word) {
    case RtfWord::ParagraphDefaults:
        style = {};
        state.tabStop = {};
        state.inTable = false;
        state.borderSide = RtfBorderSide::None;
        state.shading = {};
        state.dropCapLines = 0;
        state.numberFormat = 0;
        state.list = state.listLevel = 0;
        break;
    case RtfWord::Align: style.alignment = static_cast<Alignment>(entry.value); break;
    case RtfWord::LeftIndent: style.leftIndent = ClampRtfTwips(parameter); break;
    case RtfWord::RightIndent: style.rightIndent = ClampRtfTwips(parameter); break;
    case RtfWord::FirstLineIndent: style.firstLineIndent = ClampRtfTwips(parameter); break;
    case RtfWord::SpaceBefore: style.spaceBefore = std::max(0, ClampRtfTwips(parameter)); break;
    case RtfWord::SpaceAfter: style.spaceAfter = std::max(0, ClampRtfTwips(parameter)); break;
    case RtfWord::LineSpacing: style.lineSpacing = ClampRtfTwips(parameter); break;
    case RtfWord::LineSpacingIsMultiple: style.lineSpacingIsMultiple = on; break;
    case RtfWord::ParagraphDirection: style.rightToLeft = entry.value != 0; break;
    case RtfWord::TabAlignment:
        state.tabStop.alignment = static_cast<TabAlignment>(entry.value);
        break;
    case RtfWord::TabLeader: state.tabStop.leader = static_cast<TabLeader>(entry.value); break;
    case RtfWord::TabStop:
        state.tabStop.position = parameter;
        AddTabStop(style.tabStops, std::exchange(state.tabStop, {}));
        break;
    case RtfWord::InTable: state.inTable = on; break;
    case RtfWord::ListNumber: state.list = parameter; break;
    case RtfWord::ListLevel: state.listLevel = parameter; break;
    case RtfWord::ParagraphBackground:
    case RtfWord::ShadingPattern:
    case RtfWord::Shading: state.shading.Apply(entry, parameter, colors, style); break;
    case RtfWord::OutlineLevel:
        style.outlineLevel = parameter >= 0 && parameter < maxRtfOutlineLevels
                                 ? static_cast<std::uint8_t>(parameter + 1)
                                 : std::uint8_t{0};
        break;
    case RtfWord::DropCapLines:
        state.dropCapLines =
            static_cast<std::uint8_t>(std::clamp(parameter, 0, maxRtfDropCapLines));
        break;
    default: break;
    }
}

CharStyle DropCapStyle(CharStyle style, int lines) {
    constexpr int usualLine = 20;  // half-points of text that is not enlarged already
    style.script = Script::Normal; // it was lowered to its lines
    if (style.halfPoints < usualLine * lines)
        style.halfPoints =
            static_cast<std::uint16_t>(std::min(style.halfPoints * lines, maxRtfHalfPoints));
    return style;
}
