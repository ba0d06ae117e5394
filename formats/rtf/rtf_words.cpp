#include "formats/rtf/rtf_words.h"

#include "common/hash.h"
#include "formats/document.h"

#include <array>
#include <cstddef>

namespace {

using D = RtfDestination;
using F = RtfFamily;
using W = RtfWord;

// Words that do the same.
struct WordGroup {
    std::string_view names; // separated by blanks
    RtfFamily family;
    RtfWord word = W::None;
    std::int32_t value = 0;
};

template <typename Enum>
constexpr WordGroup Valued(std::string_view names, RtfFamily family, RtfWord word, Enum value) {
    return {names, family, word, static_cast<std::int32_t>(value)};
}

constexpr WordGroup To(RtfDestination destination, std::string_view names) {
    return Valued(names, F::Destination, W::None, destination);
}

constexpr WordGroup Literal(std::string_view names, char16_t unit) {
    return Valued(names, F::Literal, W::None, unit);
}

constexpr WordGroup wordGroups[] = {
    To(D::Fonts, "fonttbl"),
    To(D::Colors, "colortbl"),
    To(D::Styles, "stylesheet"),
    To(D::Picture, "pict"),
    To(D::FieldInstruction, "fldinst"),
    To(D::FieldResult, "fldrslt"),
    To(D::AnsiHalf, "upr"),
    To(D::Object, "object"),
    To(D::UnicodeHalf, "ud"),
    To(D::ObjectResult, "result"),
    To(D::Shape, "do shpinst"),
    To(D::ShapeText, "dptxbxtext shptxt"),
    To(D::ShapePropertyName, "sn"),
    To(D::ShapePropertyValue, "sv"),
    To(D::FallbackPicture, "nonshppict"),
    To(D::NestedRowProperties, "nesttableprops"),
    To(D::Note, "footnote"),
    To(D::Numbering, "pn"),
    To(D::NumberBefore, "pntxtb"),
    To(D::NumberAfter, "pntxta"),
    To(D::ListTable, "listoverridetable listtable"),
    To(D::List, "list"),
    To(D::ListOverride, "listoverride"),
    To(D::ListLevel, "listlevel"),
    To(D::ListLevelText, "leveltext"),
    To(D::ListOverrideLevel, "lfolevel"),
    To(D::ParagraphNumber, "listtext pntext"),
    To(D::FormField, "formfield"),
    To(D::FormEntry, "ffl"),
    To(D::FormDefaultText, "ffdeftext"),
    To(D::AttachedPicture, "NeXTGraphic"),
    To(D::Transparent, "field mmath moMath moMathPara rtf shp shppict sp"),
    // Unknown destinations marked \* are skipped anyway; some writers forget the mark.
    To(D::Skip,
       "aftncn aftnsep aftnsepc annotation atnauthor atndate atnicn atnid atnparent atnref atntime "
       "atrfend atrfstart author bkmkend bkmkstart blipuid buptim category colorschememapping "
       "comment company creatim datastore doccomm docvar falt filetbl fldtype "
       "fontemb "
       "fontfile footer footerf footerl footerr ftncn ftnsep ftnsepc generator header headerf "
       "headerl headerr hlinkbase info keycode keywords latentstyles levelnumbers listname "
       "listpicture liststylename maccPr manager mbarPr mborderBoxPr mboxPr mdPr meqArrPr mfPr "
       "mfuncPr mgroupChrPr "
       "mlimLowPr mlimUppPr mmPr mmathPict mmathPr mnaryPr moMathParaPr mphantPr mradPr mrPr "
       "msPrePr msSubPr msSubSupPr msSupPr nonesttables objalias objclass objdata objname objtime "
       "operator "
       "panose passwordhash pgdsctbl pgptbl picprop pnseclvl printim private "
       "protusertbl revtbl revtim rsidtbl rxe shprslt subject tc tcn template themedata "
       "title txe userprops wgrffmtfilter xe xmlnstbl"),

    Literal("ptabldot ptablmdot ptablminus ptablnone ptabluscore tab", u'\t'),
    Literal("emspace", u'\u2003'),
    Literal("enspace", u'\u2002'),
    Literal("qmspace", u'\u2005'),
    Literal("endash", u'\u2013'),
    Literal("emdash", u'\u2014'),
    Literal("lquote", u'\u2018'),
    Literal("rquote", u'\u2019'),
    Literal("ldblquote", u'\u201C'),
    Literal("rdblquote", u'\u201D'),
    Literal("bullet", u'\u2022'),
    Literal("zwbo", u'\u200B'),
    Literal("zwnj", u'\u200C'),
    Literal("zwj", u'\u200D'),
    Literal("ltrmark", u'\u200E'),
    Literal("rtlmark", u'\u200F'),
    Literal("zwnbo", u'\u2060'),

    {"par", F::Break, W::EndParagraph},
    {"column page sect", F::Break, W::EndPage},
    {"lbr line", F::Break, W::BreakLine},
    {"cell", F::Break, W::EndCell},
    {"row", F::Break, W::EndRow},
    {"nestcell", F::Break, W::EndNestedCell},
    {"nestrow", F::Break, W::EndNestedRow},
    {"chftn", F::Break, W::NoteNumber},

    {"plain", F::Character, W::Plain},
    {"b", F::Character, W::Bold},
    {"i", F::Character, W::Italic},
    {"ul uld uldash uldashd uldashdd uldb ulhair ulhwave ulldash ulth ulthd ulthdash ulthdashd "
     "ulthdashdd ulthldash ululdbwave ulw ulwave",
     F::Character, W::Underline},
    {"ulnone", F::Character, W::NoUnderline},
    {"strike striked", F::Character, W::Strike},
    Valued("caps", F::Character, W::Capitals, Capitals::All),
    Valued("scaps", F::Character, W::Capitals, Capitals::Small),
    {"deleted v", F::Character, W::Hidden},
    {"mdeg msup super", F::Character, W::Superscript},
    {"mlim msub sub", F::Character, W::Subscript},
    {"nosupersub", F::Character, W::NormalScript},
    {"up", F::Character, W::Raised},
    {"dn", F::Character, W::Lowered},
    {"f pnf", F::Character, W::Font},
    {"fs", F::Character, W::FontSize},
    {"cf", F::Character, W::Foreground},
    {"cb chcbpat highlight", F::Character, W::Background},
    {"ltrch", F::Character, W::RunDirection, 0},
    {"rtlch", F::Character, W::RunDirection, 1},

    {"pard", F::Paragraph, W::ParagraphDefaults},
    Valued("ql", F::Paragraph, W::Align, Alignment::Left),
    Valued("qr", F::Paragraph, W::Align, Alignment::Right),
    Valued("qc", F::Paragraph, W::Align, Alignment::Center),
    Valued("qd qj qk qt", F::Paragraph, W::Align, Alignment::Justified),
    {"li", F::Paragraph, W::LeftIndent},
    {"ri", F::Paragraph, W::RightIndent},
    {"fi", F::Paragraph, W::FirstLineIndent},
    {"sb", F::Paragraph, W::SpaceBefore},
    {"sa", F::Paragraph, W::SpaceAfter},
    {"sl", F::Paragraph, W::LineSpacing},
    {"slmult", F::Paragraph, W::LineSpacingIsMultiple},
    {"ltrpar", F::Paragraph, W::ParagraphDirection, 0},
    {"rtlpar", F::Paragraph, W::ParagraphDirection, 1},
    Valued("tqr", F::Paragraph, W::TabAlignment, TabAlignment::Right),
    Valued("tqc", F::Paragraph, W::TabAlignment, TabAlignment::Center),
    Valued("tqdec", F::Paragraph, W::TabAlignment, TabAlignment::Decimal),
    Valued("tldot", F::Paragraph, W::TabLeader, TabLeader::Dots),
    Valued("tlmdot", F::Paragraph, W::TabLeader, TabLeader::MiddleDots),
    Valued("tlhyph", F::Paragraph, W::TabLeader, TabLeader::Hyphens),
    Valued("tlul tlth", F::Paragraph, W::TabLeader, TabLeader::Underscores),
    Valued("tleq", F::Paragraph, W::TabLeader, TabLeader::EqualSigns),
    {"tx", F::Paragraph, W::TabStop},
    {"intbl", F::Paragraph, W::InTable},
    {"ls", F::Paragraph, W::ListNumber},
    {"ilvl", F::Paragraph, W::ListLevel},
    {"cbpat", F::Paragraph, W::ParagraphBackground},
    {"cfpat", F::Paragraph, W::ShadingPattern},
    {"shading", F::Paragraph, W::Shading},
    {"dropcapli", F::Paragraph, W::DropCapLines},
    {"s", F::Paragraph, W::StyleNumber},
    {"outlinelevel", F::Paragraph, W::OutlineLevel},

    {"trowd", F::Row, W::RowDefaults},
    {"cellx", F::Row, W::CellRightEdge},
    {"trleft", F::Row, W::RowLeftEdge},
    {"trgaph trpaddl", F::Row, W::CellGap},
    {"clmrg", F::Row, W::MergedLeft},
    {"clvmrg", F::Row, W::MergedAbove},
    {"clcbpat", F::Row, W::CellBackground},
    Valued("clvertalt", F::Row, W::CellVerticalAlignment, VerticalAlignment::Top),
    Valued("clvertalc", F::Row, W::CellVerticalAlignment, VerticalAlignment::Center),
    Valued("clvertalb", F::Row, W::CellVerticalAlignment, VerticalAlignment::Bottom),
    {"ltrrow", F::Row, W::RowDirection, 0},
    {"rtlrow", F::Row, W::RowDirection, 1},
    Valued("clbrdrl", F::Border, W::BorderSide, RtfBorderSide::Left),
    Valued("clbrdrt", F::Border, W::BorderSide, RtfBorderSide::Top),
    Valued("clbrdrr", F::Border, W::BorderSide, RtfBorderSide::Right),
    Valued("clbrdrb", F::Border, W::BorderSide, RtfBorderSide::Bottom),
    Valued("trbrdrl", F::Border, W::BorderSide, RtfBorderSide::RowLeft),
    Valued("trbrdrt", F::Border, W::BorderSide, RtfBorderSide::RowTop),
    Valued("trbrdrr", F::Border, W::BorderSide, RtfBorderSide::RowRight),
    Valued("trbrdrb", F::Border, W::BorderSide, RtfBorderSide::RowBottom),
    Valued("trbrdrh", F::Border, W::BorderSide, RtfBorderSide::InnerHorizontal),
    Valued("trbrdrv", F::Border, W::BorderSide, RtfBorderSide::InnerVertical),
    Valued("brdrl", F::Border, W::BorderSide, RtfBorderSide::ParagraphLeft),
    Valued("brdrt", F::Border, W::BorderSide, RtfBorderSide::ParagraphTop),
    Valued("brdrr", F::Border, W::BorderSide, RtfBorderSide::ParagraphRight),
    Valued("brdrb", F::Border, W::BorderSide, RtfBorderSide::ParagraphBottom),
    Valued("brdrbtw", F::Border, W::BorderSide, RtfBorderSide::ParagraphBetween),
    Valued("box", F::Border, W::BorderSide, RtfBorderSide::ParagraphBox),
    Valued("brdrbar chbrdr cldglu cldgll pgbrdrb pgbrdrl pgbrdrr pgbrdrt", F::Border, W::BorderSide,
           RtfBorderSide::None),
    {"brdrnil brdrnone brdrtbl", F::Border, W::BorderStyle, 0},
    {"brdrdash brdrdashd brdrdashdd brdrdashdotstr brdrdashsm brdrdb brdrdot brdremboss "
     "brdrengrave brdrframe brdrhair brdrinset brdroutset brdrs brdrsh brdrthtnlg "
     "brdrthtnmg brdrthtnsg brdrtnthlg brdrtnthmg brdrtnthsg brdrtnthtnlg brdrtnthtnmg "
     "brdrtnthtnsg brdrtriple brdrwavy brdrwavydb",
     F::Border, W::BorderStyle, 15},
    {"brdrth", F::Border, W::BorderStyle, 30},
    {"brdrw", F::Border, W::BorderWidth},
    {"brsp", F::Border, W::BorderSpace},
    {"brdrcf", F::Border, W::BorderColor},

    Valued("pngblip", F::Picture, W::PictureKind, PictureFormat::Png),
    Valued("jpegblip", F::Picture, W::PictureKind, PictureFormat::Jpeg),
    Valued("wmetafile", F::Picture, W::PictureKind, PictureFormat::Wmf),
    Valued("emfblip", F::Picture, W::PictureKind, PictureFormat::Emf),
    Valued("macpict pmmetafile wbitmap", F::Picture, W::PictureKind, PictureFormat::Other),
    {"dibitmap", F::Picture, W::PictureIsBitmap},
    {"picw", F::Picture, W::PictureWidth},
    {"pich", F::Picture, W::PictureHeight},
    {"picwgoal width", F::Picture, W::PictureGoalWidth},
    {"height pichgoal", F::Picture, W::PictureGoalHeight},
    {"picscalex", F::Picture, W::PictureScaleX},
    {"picscaley", F::Picture, W::PictureScaleY},

    {"fcharset", F::FontTable, W::FontCharset},
    {"cpg", F::FontTable, W::FontCodePage},
    {"red", F::ColorTable, W::Red},
    {"green", F::ColorTable, W::Green},
    {"blue", F::ColorTable, W::Blue},
    {"ansi", F::Document, W::CharacterSet, 0},
    {"mac", F::Document, W::CharacterSet, 10000},
    {"pc", F::Document, W::CharacterSet, 437},
    {"pca", F::Document, W::CharacterSet, 850},
    {"ansicpg", F::Document, W::AnsiCodePage},
    {"deff", F::Document, W::DefaultFont},
    {"deftab", F::Document, W::DefaultTab},
    Valued("pncard pndec pnord pnordt", F::Numbering, W::NumberKind, RtfNumberKind::Decimal),
    Valued("pnucrm", F::Numbering, W::NumberKind, RtfNumberKind::UpperRoman),
    Valued("pnlcrm", F::Numbering, W::NumberKind, RtfNumberKind::LowerRoman),
    Valued("pnucltr", F::Numbering, W::NumberKind, RtfNumberKind::UpperLetter),
    Valued("pnlcltr", F::Numbering, W::NumberKind, RtfNumberKind::LowerLetter),
    {"pnstart", F::Numbering, W::NumberStart},
    {"pnlvl pnlvlbody", F::Numbering, W::NumberedParagraph},
    {"pnlvlblt", F::Numbering, W::BulletedParagraph},
    {"pnlvlcont", F::Numbering, W::ContinuedParagraph},
    {"listid", F::List, W::ListId},
    {"levelnfc levelnfcn", F::List, W::LevelKind},
    {"levelstartat", F::List, W::LevelStart},
    {"levelfollow", F::List, W::LevelFollow},
    {"levellegal", F::List, W::LevelLegal},
    {"levelnorestart", F::List, W::LevelGoesOn},
    {"listoverridestartat", F::List, W::LevelStartsAnew},
    {"ffres", F::FormField, W::FormResult},
    {"ffdefres", F::FormField, W::FormDefaultResult},
    {"mnum", F::Math, W::MathNumerator},
    {"mden", F::Math, W::MathDenominator},
    {"mrad", F::Math, W::MathRadical},
    {"md", F::Math, W::MathDelimiters},
    {"mnary", F::Math, W::MathOperator},
    {"macc", F::Math, W::MathAccent},
    {"mfName mmr", F::Math, W::MathSpaced},
    {"u", F::Unicode, W::UnicodeCharacter},
    {"uc", F::Unicode, W::FallbackLength},
};

constexpr std::size_t wordCount = [] {
    std::size_t count = 0;
    for (const WordGroup& group : wordGroups) {
        ++count;
        for (const char c : group.names)
            count += c == ' ';
    }
    return count;
}();

constexpr auto words = [] {
    std::array<RtfWordEntry, wordCount> entries{};
    std::size_t count = 0;
    for (const WordGroup& group : wordGroups) {
        std::string_view names = group.names;
        while (!names.empty()) {
            const std::size_t end = names.find(' ');
            entries[count++] = {names.substr(0, end), group.family, group.word, group.value};
            names.remove_prefix(end == names.npos ? names.size() : end + 1);
        }
    }
    return entries;
}();

// Open addressing, a sixth full: an unknown word mostly takes one probe.
constexpr std::size_t slotCount = 2048;
static_assert(wordCount * 3 < slotCount);

constexpr std::size_t SlotOf(std::string_view name) {
    const std::uint32_t hash = Fnv1a(name);
    return (hash ^ hash >> 15) % slotCount;
}

constexpr auto slots = [] {
    std::array<std::uint16_t, slotCount> table{}; // index of the word plus one, 0 for a free slot
    for (std::size_t i = 0; i < words.size(); ++i) {
        std::size_t slot = SlotOf(words[i].name);
        while (table[slot] != 0)
            slot = (slot + 1) % slotCount;
        table[slot] = static_cast<std::uint16_t>(i + 1);
    }
    return table;
}();

} // namespace

const RtfWordEntry* FindRtfWord(std::string_view name) {
    for (std::size_t slot = SlotOf(name); slots[slot] != 0; slot = (slot + 1) % slotCount) {
        const RtfWordEntry& entry = words[slots[slot] - 1];
        if (entry.name == name) return &entry;
    }
    return nullptr;
}
