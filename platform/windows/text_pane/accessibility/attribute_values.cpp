#include "platform/windows/text_pane/accessibility/attribute_values.h"

#include "platform/windows/base/text.h"
#include "platform/windows/text_pane/accessibility/uia_library.h"

#include <algorithm>
#include <optional>
#include <string>
#include <variant>

namespace {
constexpr int maxStretches = 1024;     // of one style, looked at for an answer
constexpr int maxParagraphs = 100'000; // likewise
constexpr LONG lineStyleNone = 0, lineStyleSingle = 1;
constexpr LONG flowRightToLeft = 1;
constexpr LONG weightNormal = 400, weightBold = 700;

using AttributeValue = std::variant<bool, LONG, double, std::u16string>;

LONG LineStyle(bool drawn) {
    return drawn ? lineStyleSingle : lineStyleNone;
}

std::optional<AttributeValue> ValueOf(const CharacterFormat& format, TEXTATTRIBUTEID id) {
    const TextStyle& style = format.style;
    switch (id) {
    case uia::fontName: return style.font.family;
    case uia::fontSize: return style.font.points;
    case uia::fontWeight: return style.font.bold ? weightBold : weightNormal;
    case uia::isItalic: return style.font.italic;
    case uia::underlineStyle: return LineStyle(style.underline);
    case uia::strikethroughStyle: return LineStyle(style.strikethrough);
    case uia::isSubscript: return style.baseline == TextBaseline::Subscript;
    case uia::isSuperscript: return style.baseline == TextBaseline::Superscript;
    case uia::foregroundColor: return static_cast<LONG>(format.foreground);
    case uia::backgroundColor: return static_cast<LONG>(format.background);
    default: return std::nullopt;
    }
}

LONG AlignmentNumber(Alignment alignment) {
    switch (alignment) {
    case Alignment::Left: return 0;
    case Alignment::Center: return 1;
    case Alignment::Right: return 2;
    case Alignment::Justified: return 3;
    }
    return 0;
}

LONG StyleOf(const ParagraphFormat& format) {
    if (format.headingLevel > 0) return uia::headingStyle + format.headingLevel;
    if (format.isListItem)
        return format.isNumbered ? uia::numberedListStyle : uia::bulletedListStyle;
    return uia::normalStyle;
}

std::optional<AttributeValue> ValueOf(const ParagraphFormat& format, TEXTATTRIBUTEID id) {
    switch (id) {
    case uia::horizontalTextAlignment: return AlignmentNumber(format.alignment);
    case uia::textFlowDirections: return format.rightToLeft ? flowRightToLeft : LONG(0);
    case uia::styleId: return StyleOf(format);
    default: return std::nullopt;
    }
}

struct Attribute {
    std::optional<AttributeValue> value; // none: not supported
    bool mixed = false;
};

// An empty span has what is at its place.
template <typename FormatAt>
Attribute CommonValue(ReadablePane& pane, TextSpan span, TEXTATTRIBUTEID id, FormatAt formatAt) {
    auto format = (pane.*formatAt)(span.start);
    Attribute common{ValueOf(format, id)};
    for (int i = 0; common.value && format.span.end < span.end; ++i) {
        const TextPos next = format.span.end;
        format = (pane.*formatAt)(next);
        common.mixed = i == maxStretches || ValueOf(format, id) != common.value;
        if (common.mixed || format.span.end <= next) break;
    }
    return common;
}

Attribute AttributeOf(ReadablePane& pane, TextSpan span, TEXTATTRIBUTEID id) {
    switch (id) {
    case uia::isReadOnly: return {true};
    case uia::isHidden: return {false};
    case uia::horizontalTextAlignment:
    case uia::textFlowDirections:
    case uia::styleId: return CommonValue(pane, span, id, &ReadablePane::ParagraphFormatAt);
    default: return CommonValue(pane, span, id, &ReadablePane::CharacterFormatAt);
    }
}

void Set(VARIANT* value, const AttributeValue& attribute) {
    if (const auto* truth = std::get_if<bool>(&attribute)) {
        V_VT(value) = VT_BOOL;
        V_BOOL(value) = *truth ? VARIANT_TRUE : VARIANT_FALSE;
    } else if (const auto* number = std::get_if<LONG>(&attribute)) {
        V_VT(value) = VT_I4;
        V_I4(value) = *number;
    } else if (const auto* real = std::get_if<double>(&attribute)) {
        V_VT(value) = VT_R8;
        V_R8(value) = *real;
    } else if (const auto* text = std::get_if<std::u16string>(&attribute)) {
        const std::wstring units = ToWide(*text);
        V_VT(value) = VT_BSTR;
        V_BSTR(value) = SysAllocStringLen(units.data(), static_cast<UINT>(units.size()));
    }
}

// One of the objects that the system has in the place of a value.
HRESULT SetReserved(VARIANT* value, HRESULT(WINAPI* reserved)(IUnknown**)) {
    IUnknown* object = nullptr;
    const HRESULT result = reserved ? reserved(&object) : E_NOTIMPL;
    if (FAILED(result)) return result;
    V_VT(value) = VT_UNKNOWN;
    V_UNKNOWN(value) = object;
    return S_OK;
}
} // namespace

HRESULT GiveAttribute(ReadablePane& pane, TextSpan span, TEXTATTRIBUTEID id, VARIANT* value) {
    const Attribute attribute = AttributeOf(pane, span, id);
    const UiaLibrary& library = UiaLibrary::Get();
    if (!attribute.value) return SetReserved(value, library.NotSupportedValue);
    if (attribute.mixed) return SetReserved(value, library.MixedValue);
    Set(value, *attribute.value);
    return S_OK;
}

std::optional<TextSpan> FindAttributeIn(ReadablePane& pane, TextSpan span, TEXTATTRIBUTEID id,
                                        const VARIANT& value, bool backward) {
    if (id != uia::styleId || V_VT(&value) != VT_I4) return std::nullopt;
    const auto isAt = [&](TextPos position) {
        return StyleOf(pane.ParagraphFormatAt(position)) == V_I4(&value);
    };
    TextPos at = backward ? span.end - 1 : span.start;
    for (int i = 0; i < maxParagraphs && at >= span.start && at < span.end; ++i) {
        const TextSpan paragraph = pane.ReadingParagraph(at);
        if (isAt(at))
            return TextSpan{std::max(paragraph.start, span.start),
                            std::min(paragraph.end, span.end)};
        if (paragraph.end <= paragraph.start) break;
        at = backward ? paragraph.start - 1 : paragraph.end;
    }
    return std::nullopt;
}
