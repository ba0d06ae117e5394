// More start tags "in body": elements of text alone, choices, ruby, parts of forms, objects,
// tables, and the roots of foreign content.
#include "formats/html/html_tree_builder.h"

using enum HtmlName;

bool HtmlTreeBuilder::StartText(HtmlToken& token) {
    switch (token.name) {
    case Plaintext:
        CloseParagraphInScope();
        InsertElement(token);
        tokenizer_.SetContent(HtmlContent::Plaintext);
        return true;
    case Textarea:
        StartTextElement(token, HtmlContent::Rcdata);
        skipsLineFeed_ = true;
        framesetOk_ = false;
        return true;
    case Xmp:
        CloseParagraphInScope();
        ReconstructFormatting();
        [[fallthrough]];
    case Iframe: framesetOk_ = false; [[fallthrough]];
    case Noembed: StartTextElement(token, HtmlContent::Rawtext); return true;
    default: return false;
    }
}

bool HtmlTreeBuilder::StartSelectPart(HtmlToken& token) {
    const bool inSelect = open_.HasInScope(Select);
    switch (token.name) {
    case Select:
        if (inSelect) { // a second start tag is meant as an end tag
            PopThrough(Select);
            return true;
        }
        framesetOk_ = false;
        break;
    case HtmlName::Option:
        if (inSelect)
            GenerateImpliedEndTags(Optgroup);
        else if (CurrentName() == HtmlName::Option)
            Pop();
        break;
    case Optgroup:
        if (inSelect)
            GenerateImpliedEndTags();
        else if (CurrentName() == HtmlName::Option)
            Pop();
        break;
    default: return false;
    }
    ReconstructFormatting();
    InsertElement(token);
    return true;
}

bool HtmlTreeBuilder::StartRuby(HtmlToken& token) {
    const bool endsText = token.name == Rb || token.name == Rtc;
    if (!endsText && token.name != Rp && token.name != Rt) return false;
    if (open_.HasInScope(Ruby)) GenerateImpliedEndTags(endsText ? None : Rtc);
    InsertElement(token);
    return true;
}

bool HtmlTreeBuilder::StartPart(HtmlToken& token) {
    switch (token.name) {
    case Button:
        if (open_.HasInScope(Button)) {
            GenerateImpliedEndTags();
            PopThrough(Button);
        }
        ReconstructFormatting();
        InsertElement(token);
        framesetOk_ = false;
        return true;
    case Applet:
    case Marquee:
    case Object:
        ReconstructFormatting();
        InsertElement(token);
        formatting_.PushMarker();
        framesetOk_ = false;
        return true;
    case Table:
        if (writer_.Quirks() != HtmlQuirks::Full) CloseParagraphInScope();
        InsertElement(token);
        framesetOk_ = false;
        mode_ = Mode::InTable;
        return true;
    case Math:
    case Svg:
        ReconstructFormatting();
        InsertForeign(token, token.name == Svg ? HtmlNamespace::Svg : HtmlNamespace::MathMl);
        return true;
    default: return false;
    }
}
