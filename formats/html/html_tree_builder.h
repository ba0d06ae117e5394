// The tree construction of WHATWG's HTML Standard, scripting off: tokens become a tree. Each file
// html_*_mode*.cpp has the rules of one or a few insertion modes.
#pragma once

#include "formats/html/html_formatting.h"
#include "formats/html/html_open_elements.h"
#include "formats/html/html_tokenizer.h"
#include "formats/html/html_tree_writer.h"

#include <cstdint>
#include <initializer_list>
#include <string>
#include <vector>

class HtmlTreeBuilder {
  public:
    HtmlTreeBuilder(HtmlTree& tree, std::u16string source);

    void Build();
    // What was done that depends on more than the token: nodes put somewhere, entries of the stack
    // and the list looked at, units copied. For tests: that it stays in proportion to the page.
    std::uint64_t Steps() const {
        return steps_ + open_.Steps() + formatting_.Steps() + writer_.Steps();
    }

  private:
    enum class Mode : std::uint8_t {
        Initial,
        BeforeHtml,
        BeforeHead,
        InHead,
        InHeadNoscript,
        AfterHead,
        InBody,
        Text,
        InTable,
        InTableText,
        InCaption,
        InColumnGroup,
        InTableBody,
        InRow,
        InCell,
        InTemplate,
        AfterBody,
        InFrameset,
        AfterFrameset,
        AfterAfterBody,
        AfterAfterFrameset
    };
    using Names = std::initializer_list<HtmlName>;

    void Process(HtmlToken& token);
    void ProcessCharacters(HtmlToken& token);
    void Dispatch(HtmlToken& token);
    void ProcessIn(Mode mode, HtmlToken& token); // by that mode's rules
    void Reprocess(Mode mode, HtmlToken& token); // in that mode from now on
    bool IsSkippedWhenFull(const HtmlToken& token) const;
    bool SplitsSpaces() const;
    bool IsSpace(const HtmlToken& token) const; // characters, all blanks

    // html_start_modes.cpp, html_head_modes.cpp
    void InitialMode(HtmlToken& token);
    void BeforeHtmlMode(HtmlToken& token);
    void BeforeHeadMode(HtmlToken& token);
    void InHeadMode(HtmlToken& token);
    void InHeadStartTag(HtmlToken& token);
    void InHeadNoscriptMode(HtmlToken& token);
    void AfterHeadMode(HtmlToken& token);
    void EndTemplate();
    // html_body_mode.cpp, html_body_start_tags.cpp, html_body_end_tags.cpp
    void InBodyMode(HtmlToken& token);
    void InBodyCharacters(std::u16string_view text, HtmlSourceSpan source);
    void InBodyStartTag(HtmlToken& token);
    bool StartBlock(HtmlToken& token);
    bool StartListItem(HtmlToken& token);
    bool StartFormatting(HtmlToken& token);
    bool StartVoid(HtmlToken& token);
    bool StartText(HtmlToken& token);
    bool StartSelectPart(HtmlToken& token);
    bool StartRuby(HtmlToken& token);
    bool StartPart(HtmlToken& token); // of a form, a table, an object; foreign roots
    void StartFrameset(HtmlToken& token);
    void InBodyEndTag(HtmlToken& token);
    void EndBlock(HtmlToken& token);
    void EndForm(HtmlToken& token);
    void EndListItem(HtmlToken& token, HtmlBoundary scope);
    void EndHeading(HtmlToken& token);
    void AnyOtherEndTag(HtmlToken& token);
    // html_adoption.cpp
    void Adopt(HtmlToken& token);
    bool AdoptOnce(HtmlToken& token);
    HtmlNodeId MoveInner(std::vector<HtmlNodeId>& above, std::size_t furthest,
                         std::size_t& bookmark);
    // html_table_modes.cpp, html_row_modes.cpp
    void InTableMode(HtmlToken& token);
    bool InTableStartTag(HtmlToken& token);
    void InTableElse(HtmlToken& token);
    void InTableTextMode(HtmlToken& token);
    void InCaptionMode(HtmlToken& token);
    void InColumnGroupMode(HtmlToken& token);
    void InTableBodyMode(HtmlToken& token);
    void InRowMode(HtmlToken& token);
    bool EndRow();
    void InCellMode(HtmlToken& token);
    void EndCell(const HtmlToken& token);
    // html_end_modes.cpp
    void TextMode(HtmlToken& token);
    void InTemplateMode(HtmlToken& token);
    void AfterBodyMode(HtmlToken& token);
    void InFramesetMode(HtmlToken& token);
    void AfterFramesetMode(HtmlToken& token);
    void AfterAfterBodyMode(HtmlToken& token);
    void AfterAfterFramesetMode(HtmlToken& token);
    // html_foreign.cpp
    bool IsForeign(const HtmlToken& token) const; // what the rules of foreign content apply to
    void InForeignContent(HtmlToken& token);
    void PopForeign();
    void ForeignStartTag(HtmlToken& token);
    void ForeignEndTag(HtmlToken& token);
    void InsertForeign(HtmlToken& token, HtmlNamespace nameSpace);
    void AdjustAttributes(HtmlToken& token, HtmlNamespace nameSpace);

    // html_insertion.cpp
    HtmlPlace PlaceFor(HtmlNodeId target);
    HtmlPlace FosterPlace();
    HtmlPlace InsideOf(HtmlNodeId id) const; // a template's contents
    HtmlNodeId InsertElement(const HtmlToken& token);
    HtmlNodeId InsertImplied(HtmlName name);
    void InsertVoid(const HtmlToken& token);
    void PushInserted(HtmlNodeId id);
    void InsertText(std::u16string_view text, HtmlSourceSpan source);
    void InsertComment(const HtmlToken& token);
    void InsertComment(const HtmlToken& token, HtmlNodeId parent);
    void StartTextElement(const HtmlToken& token, HtmlContent content);
    void ReconstructFormatting();
    HtmlNodeId Clone(HtmlNodeId id);
    bool HasClones() const { return cloneCount_ < maxClones_; }

    // html_closing.cpp
    HtmlName CurrentName() const; // None unless an HTML element
    bool CurrentIs(Names names) const;
    void Pop() { open_.Pop(); }
    void PopThrough(HtmlName name);
    void PopThroughEnd(const HtmlToken& endTag); // that is known to be open
    void PopUntilOne(Names names);
    void GenerateImpliedEndTags(HtmlName except = HtmlName::None);
    void GenerateAllImpliedEndTags();
    void CloseParagraph();
    void CloseParagraphInScope();
    void NoteEndTag(HtmlNodeId id, const HtmlToken& endTag);
    void ResetMode();
    Mode ModeOf(HtmlName innermost) const;

    HtmlTreeWriter writer_;
    HtmlTokenizer tokenizer_;
    HtmlOpenElements open_;
    HtmlFormatting formatting_;
    std::vector<Mode> templateModes_;
    struct TableText {
        std::u16string_view text;
        HtmlSourceSpan source;
    };
    std::vector<TableText> tableText_;
    Mode mode_ = Mode::Initial, originalMode_ = Mode::Initial;
    HtmlNodeId head_ = noHtmlNode, form_ = noHtmlNode;
    bool framesetOk_ = true;
    bool fosterParenting_ = false;
    bool skipsLineFeed_ = false; // the next one, just after `pre` or `textarea`
    bool stopped_ = false;
    std::size_t cloneCount_ = 0, maxClones_ = 0;
    std::uint64_t steps_ = 0;
};
