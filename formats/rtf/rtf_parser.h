// The RTF reader: handles groups, destinations, control words and text.
#pragma once

#include "formats/rtf/rtf_form_field.h"
#include "formats/rtf/rtf_limits.h"
#include "formats/rtf/rtf_lists.h"
#include "formats/rtf/rtf_numbering.h"
#include "formats/rtf/rtf_pictures.h"
#include "formats/rtf/rtf_rows.h"
#include "formats/rtf/rtf_state.h"
#include "formats/rtf/rtf_story.h"
#include "formats/rtf/rtf_style_set.h"
#include "formats/rtf/rtf_styles.h"
#include "formats/rtf/rtf_text_decoder.h"
#include "formats/rtf/rtf_tokenizer.h"

#include <limits>

class RtfParser {
  public:
    RtfParser(std::string_view bytes, int systemCodePage);
    Document Parse();

  private:
    void OpenGroup();
    void CloseGroup();
    void CloseAllGroups();
    void HandleToken(const RtfToken& token);

    void HandleWord(const RtfToken& token, bool isStarred);
    void HandleKnownWord(const RtfWordEntry& entry, const RtfToken& token);
    void HandleDocumentWord(const RtfWordEntry& entry, std::int32_t parameter);
    void HandleFontWord(const RtfWordEntry& entry, std::int32_t parameter);
    void HandleColorWord(const RtfWordEntry& entry, std::int32_t parameter);
    void HandleMathWord(RtfWord part);
    void EndMathPart();
    void HandleParagraphWord(const RtfWordEntry& entry, const RtfToken& token);
    void HandleSymbol(unsigned char symbol);

    void EnterDestination(RtfDestination destination);
    void EnterNested(RtfDestination destination);
    void EnterNote();
    void EndDestination(const RtfState& ended);
    void EndField();
    void AddFieldText();
    void AddPicture(RtfStory& story, const CharStyle& style, Picture picture);
    void EndNote(const RtfState& ended);
    void EndPicture(const RtfState& ended);
    void EndAttachedPicture(const RtfState& ended);

    void HandleBreak(RtfWord word);
    void EndParagraph();
    bool IsDropCap();
    void EndCell();
    void EndRow();
    void EndNestedRow();
    void AddNoteNumber();
    void AddParagraphNumber();
    std::u16string ListNumber(std::int32_t list);
    void CountListParagraph();
    void EndWrittenNumber();

    void HandleText(std::string_view bytes);
    void HandleHexByte(unsigned char byte);
    void HandleLiteral(char16_t unit);
    void HandleUnicode(std::int32_t parameter);
    void HandleUnicodeUnit(char16_t unit);
    void AddUnit(char16_t unit);
    void EndNames(); // of fonts and styles
    void AddBytes(std::string_view bytes, int codePage);
    void AddSymbol(unsigned char byte);
    void FinishBytes();
    void FinishCharacter();
    bool SkipsFallback();
    std::u16string* Sink();
    std::size_t MaxLengthOfSink() const;
    int CodePageOfText() const;
    int CodePageOfRawText() const;
    SymbolSet SymbolsOfText() const;
    const RtfFont* FontOfText() const { return State().font ? State().font : fonts_.Default(); }

    RtfState& State() { return stack_.back(); }
    const RtfState& State() const { return stack_.back(); }
    RtfStory& Story() { return State().inNote ? notes_ : body_; }
    bool IsShown() const {
        return State().destination == RtfDestination::Body && !State().isHidden;
    }
    bool MayHoldTable() const { return !State().inNote && !State().inShape; }
    std::uint32_t CharStyleNow() {
        const RtfState& now = State();
        return charStyles_.IndexOf(
            now.dropCapLines == 0 ? now.chars : DropCapStyle(now.chars, now.dropCapLines));
    }
    std::uint32_t ParagraphStyleNow();
    void FinishStories();
    Document ReleaseDocument();

    static constexpr TextPos nowhere = std::numeric_limits<TextPos>::max();

    RtfTokenizer tokenizer_;
    std::vector<RtfState> stack_;
    std::size_t sharedDepth_ = 0; // of the groups beyond the deepest that has a state of its own
    bool isStarred_ = false;      // \* stands before the word
    std::int32_t fallbackLeft_ = 0;
    char16_t highSurrogate_ = 0; // waits for its other half

    RtfFontTable fonts_;
    RtfColorTable colors_;
    RtfStyleSheet styles_;
    RtfStyleSet<CharStyle, maxRtfCharStyles> charStyles_;
    RtfStyleSet<ParagraphStyle, maxRtfParagraphStyles> paragraphStyles_;
    RtfTextDecoder decoder_;
    int codePage_;        // of text in a font without one
    std::size_t rawUtf8_; // characters of UTF-8 that are bytes of the file, not escaped
    bool escapesUtf8_;
    std::int32_t defaultTab_ = 720;

    RtfStory body_, notes_;
    RtfRowBuilder rows_;
    RtfPictureReader picture_;
    std::size_t noteCount_ = 0;
    RtfNumbering numbering_;
    RtfLists lists_;
    TextPos numberedStart_ = nowhere; // the last paragraph of a list that got its number
    std::u16string blankNumber_;      // written in front of the paragraph that begins
    RtfFormField formField_;          // of the last instruction
    std::u16string fieldInstruction_, shapeProperty_, attachedFile_;
    std::vector<std::u16string> links_;
    // What a field shows if it has no result: it is the group of this depth.
    struct FieldText {
        std::u16string text, pictureFile;
        std::size_t depth = 0;
        TextPos resultStart = 0;
    };
    std::vector<FieldText> fieldTexts_; // of the open groups, ascending depths
};
