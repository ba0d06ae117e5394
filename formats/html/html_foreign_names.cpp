#include "formats/html/html_foreign.h"

#include "formats/html/html_units.h"

#include <algorithm>
#include <span>

namespace {

// The lists of the standard's section "Creating and inserting nodes" and of its rules for foreign
// content.
constexpr std::u16string_view svgElements[] = {
    u"altGlyph",
    u"altGlyphDef",
    u"altGlyphItem",
    u"animateColor",
    u"animateMotion",
    u"animateTransform",
    u"clipPath",
    u"feBlend",
    u"feColorMatrix",
    u"feComponentTransfer",
    u"feComposite",
    u"feConvolveMatrix",
    u"feDiffuseLighting",
    u"feDisplacementMap",
    u"feDistantLight",
    u"feDropShadow",
    u"feFlood",
    u"feFuncA",
    u"feFuncB",
    u"feFuncG",
    u"feFuncR",
    u"feGaussianBlur",
    u"feImage",
    u"feMerge",
    u"feMergeNode",
    u"feMorphology",
    u"feOffset",
    u"fePointLight",
    u"feSpecularLighting",
    u"feSpotLight",
    u"feTile",
    u"feTurbulence",
    u"foreignObject",
    u"glyphRef",
    u"linearGradient",
    u"radialGradient",
    u"textPath",
};

constexpr std::u16string_view svgAttributes[] = {
    u"attributeName",
    u"attributeType",
    u"baseFrequency",
    u"baseProfile",
    u"calcMode",
    u"clipPathUnits",
    u"diffuseConstant",
    u"edgeMode",
    u"filterUnits",
    u"glyphRef",
    u"gradientTransform",
    u"gradientUnits",
    u"kernelMatrix",
    u"kernelUnitLength",
    u"keyPoints",
    u"keySplines",
    u"keyTimes",
    u"lengthAdjust",
    u"limitingConeAngle",
    u"markerHeight",
    u"markerUnits",
    u"markerWidth",
    u"maskContentUnits",
    u"maskUnits",
    u"numOctaves",
    u"pathLength",
    u"patternContentUnits",
    u"patternTransform",
    u"patternUnits",
    u"pointsAtX",
    u"pointsAtY",
    u"pointsAtZ",
    u"preserveAlpha",
    u"preserveAspectRatio",
    u"primitiveUnits",
    u"refX",
    u"refY",
    u"repeatCount",
    u"repeatDur",
    u"requiredExtensions",
    u"requiredFeatures",
    u"specularConstant",
    u"specularExponent",
    u"spreadMethod",
    u"startOffset",
    u"stdDeviation",
    u"stitchTiles",
    u"surfaceScale",
    u"systemLanguage",
    u"tableValues",
    u"targetX",
    u"targetY",
    u"textLength",
    u"viewBox",
    u"viewTarget",
    u"xChannelSelector",
    u"yChannelSelector",
    u"zoomAndPan",
};

std::u16string_view Written(std::span<const std::u16string_view> names, std::u16string_view lower) {
    const auto name = std::ranges::find_if(
        names, [&](std::u16string_view one) { return EqualsAsciiLower(one, lower); });
    return name == names.end() ? lower : *name;
}

struct ForeignAttribute {
    std::u16string_view name;
    HtmlAttributeNamespace nameSpace;
};

constexpr ForeignAttribute foreignAttributes[] = {
    {u"xlink:actuate", HtmlAttributeNamespace::XLink},
    {u"xlink:arcrole", HtmlAttributeNamespace::XLink},
    {u"xlink:href", HtmlAttributeNamespace::XLink},
    {u"xlink:role", HtmlAttributeNamespace::XLink},
    {u"xlink:show", HtmlAttributeNamespace::XLink},
    {u"xlink:title", HtmlAttributeNamespace::XLink},
    {u"xlink:type", HtmlAttributeNamespace::XLink},
    {u"xml:lang", HtmlAttributeNamespace::Xml},
    {u"xml:space", HtmlAttributeNamespace::Xml},
    {u"xmlns", HtmlAttributeNamespace::Xmlns},
    {u"xmlns:xlink", HtmlAttributeNamespace::Xmlns},
};

} // namespace

std::u16string_view SvgElementName(std::u16string_view lower) {
    return Written(svgElements, lower);
}

std::u16string_view SvgAttributeName(std::u16string_view lower) {
    return Written(svgAttributes, lower);
}

ForeignAttributeName SplitForeignAttribute(std::u16string_view name) {
    for (const ForeignAttribute& one : foreignAttributes)
        if (one.name == name) {
            const std::size_t colon = name.find(u':');
            return {one.nameSpace, colon == name.npos ? name : name.substr(colon + 1)};
        }
    return {HtmlAttributeNamespace::None, name};
}
