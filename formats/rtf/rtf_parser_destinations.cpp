#include "formats/rtf/rtf_parser.h"

#include "common/text.h"
#include "formats/rtf/rtf_field_text.h"
#include "formats/rtf/rtf_fields.h"

#include <utility>

void RtfParser::EnterDestination(RtfDestination destination) {
    RtfState& state = State();
    const auto leave = [&state](RtfDestination left) {
        if (state.destination == left) state.destination = state.outer;
    };
    switch (destination) {
    case RtfDestination::UnicodeHalf: return leave(RtfDestination::AnsiHalf);
    case RtfDestination::Transparent: return;
    default: break;
    }
    // What is for other readers leads nowhere.
    if (state.destination == RtfDestination::AnsiHalf) return;
    if (destination != RtfDestination::Skip) FinishCharacter();
    switch (destination) {
    case RtfDestination::Note: return EnterNote();
    case RtfDestination::ObjectResult: return leave(RtfDestination::Object);
    case RtfDestination::ShapeText:
        leave(RtfDestination::Shape);
        state.inShape = true;
        return;
    case RtfDestination::ShapePropertyValue:
        if (shapeProperty_ == u"pib" || shapeProperty_ == u"gtextUNICODE")
            return leave(RtfDestination::Shape);
        state.destination = RtfDestination::Skip;
        return;
    case RtfDestination::FieldResult:
        if (state.fieldLink != 0) state.chars.link = state.fieldLink;
        state.fieldLink = 0;
        return;
    case RtfDestination::ParagraphNumber: state.inNumber = true; return;
    case RtfDestination::FallbackPicture:
        if (Story().text.ends_with(u'\uFFFC')) state.destination = RtfDestination::Skip;
        return;
    default: return EnterNested(destination);
    }
}

void RtfParser::EnterNested(RtfDestination destination) {
    RtfState& state = State();
    if (state.destination != destination) state.outer = state.destination;
    state.destination = destination;
    state.opensDestination = true;
    switch (destination) {
    case RtfDestination::Picture: picture_.Begin(); break;
    case RtfDestination::Styles: styles_.Name().clear(); break;
    case RtfDestination::FieldInstruction:
        fieldInstruction_.clear();
        formField_ = {};
        break;
    case RtfDestination::Numbering: numbering_.Begin(); break;
    case RtfDestination::List:
    case RtfDestination::ListOverride: lists_.BeginList(); break;
    case RtfDestination::ListOverrideLevel: lists_.BeginOverrideLevel(); break;
    case RtfDestination::ListLevel:
        state.paragraph = {}; // has its own font and indents, or none
        state.font = nullptr;
        lists_.BeginLevel();
        break;
    case RtfDestination::AttachedPicture:
        attachedFile_.clear();
        picture_.Begin();
        break;
    case RtfDestination::ShapePropertyName: shapeProperty_.clear(); break;
    default: break;
    }
}

void RtfParser::EnterNote() {
    RtfState& state = State();
    if (state.destination != RtfDestination::Body || state.inNote) return;
    state.opensDestination = true;
    state.inNote = true;
    state.inShape = false;
    ++noteCount_;
}

void RtfParser::EndDestination(const RtfState& ended) {
    switch (ended.destination) {
    case RtfDestination::Fonts: fonts_.End(); break;
    case RtfDestination::FieldInstruction: EndField(); break;
    case RtfDestination::Picture: EndPicture(ended); break;
    case RtfDestination::AttachedPicture: EndAttachedPicture(ended); break;
    case RtfDestination::Numbering: State().numberFormat = numbering_.End(); break;
    case RtfDestination::List: lists_.EndList(); break;
    case RtfDestination::ListLevel: lists_.EndLevel(ended); break;
    case RtfDestination::ListOverride: lists_.EndOverride(); break;
    case RtfDestination::ListOverrideLevel: lists_.EndOverrideLevel(); break;
    case RtfDestination::FormEntry: formField_.EndEntry(); break;
    default: break;
    }
    if (ended.inNote && !State().inNote) EndNote(ended);
}

void RtfParser::EndField() {
    // Of the innermost field at each depth the last instruction counts.
    while (!fieldTexts_.empty() && fieldTexts_.back().depth >= stack_.size())
        fieldTexts_.pop_back();
    if (IsShown() && sharedDepth_ == 0) {
        FieldText field{TextOfField(fieldInstruction_), PictureFileOfField(fieldInstruction_),
                        stack_.size(), Story().Size()};
        if (field.text.empty()) field.text = formField_.Text(fieldInstruction_);
        if (!field.text.empty() || !field.pictureFile.empty())
            fieldTexts_.push_back(std::move(field));
    }
    const std::u16string address = LinkOfField(fieldInstruction_);
    // Many fields in a row lead to one place: one for each style of a link's text.
    const bool isNew = !address.empty() && (links_.empty() || links_.back() != address);
    if (isNew && links_.size() < maxRtfLinks) links_.push_back(address);
    const bool isKnown = !address.empty() && links_.back() == address;
    State().fieldLink = isKnown ? static_cast<std::uint16_t>(links_.size()) : std::uint16_t{0};
}

// At the end of a field whose result is empty or left out.
void RtfParser::AddFieldText() {
    if (fieldTexts_.empty() || fieldTexts_.back().depth != stack_.size()) return;
    FinishCharacter();
    const FieldText field = std::move(fieldTexts_.back());
    fieldTexts_.pop_back();
    if (Story().Size() != field.resultStart || !IsShown()) return;
    for (const char16_t unit : field.text)
        AddUnit(unit);
    if (field.pictureFile.empty()) return;
    Picture picture;
    picture.file = field.pictureFile;
    AddPicture(Story(), State().chars, std::move(picture));
}

void RtfParser::EndNote(const RtfState& ended) {
    if (notes_.AtParagraphStart()) return;
    notes_.EndParagraph(u'\n', charStyles_.IndexOf(ended.chars),
                        paragraphStyles_.IndexOf(ended.paragraph));
}

void RtfParser::EndPicture(const RtfState& ended) {
    const bool isShown = ended.outer == RtfDestination::Body && !ended.isHidden;
    if (isShown) AddPicture(ended.inNote ? notes_ : body_, ended.chars, picture_.Release());
}

// The character after it stands for the picture in other readers.
void RtfParser::EndAttachedPicture(const RtfState& ended) {
    fallbackLeft_ = 1;
    if (ended.outer != RtfDestination::Body || ended.isHidden) return;
    Picture picture = picture_.Release();
    picture.file = TrimBlanks(attachedFile_);
    if (!picture.file.empty())
        AddPicture(ended.inNote ? notes_ : body_, ended.chars, std::move(picture));
}

void RtfParser::AddPicture(RtfStory& story, const CharStyle& style, Picture picture) {
    if (body_.pictures.size() + notes_.pictures.size() >= maxRtfPictures) return;
    story.UseCharStyle(charStyles_.IndexOf(style));
    picture.position = story.Size();
    story.pictures.push_back(std::move(picture));
    story.text.push_back(u'\uFFFC');
}
