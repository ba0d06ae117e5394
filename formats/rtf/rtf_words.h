// The control words that the RTF reader knows (RTF 1.9.1), and what they are for.
#pragma once

#include <cstdint>
#include <string_view>

// What a control word applies to.
enum class RtfFamily : std::uint8_t {
    Destination,
    Literal,   // `value` is a UTF-16 unit
    Break,     // ends a paragraph, a cell and so on
    Character, // changes the character style
    Paragraph,
    Row,
    Border, // of a paragraph or in a table: the side named last says which
    Picture,
    FontTable,
    ColorTable,
    Document,
    Numbering,
    List,
    FormField,
    Math, // a part of a formula
    Unicode,
};

// The destination of a group's text. From `Transparent` on: meanings of control words that are
// never a group's own state.
enum class RtfDestination : std::uint8_t {
    Body,
    Skip,
    Fonts,
    Colors,
    Styles,
    Picture,
    FieldInstruction,
    AnsiHalf, // what \upr gives to readers that do not know Unicode
    Object,
    Shape,
    ShapePropertyName,
    NestedRowProperties,
    Numbering,
    NumberBefore,
    NumberAfter,
    ListTable, // of overrides, too
    List,
    ListOverride,
    ListLevel,
    ListLevelText,
    ListOverrideLevel,
    FormField,
    FormEntry,
    FormDefaultText,
    AttachedPicture, // its text is the name of a file beside the book

    Transparent,        // as the group around it
    UnicodeHalf,        // as around \upr, for us
    ObjectResult,       // as around \object
    Note,               // a footnote's text
    ShapeText,          // shown in the paragraph that the shape is anchored in
    FieldResult,        // as the group around it, with the field's link
    FallbackPicture,    // a picture for readers that do not know \shppict
    ShapePropertyValue, // may hold the shape's picture, or its text as a drawing
    ParagraphNumber,    // what the writer has put in front of a paragraph
};

// Of a list, and of paragraphs that are numbered by themselves.
enum class RtfNumberKind : std::uint8_t {
    None,
    Decimal,
    UpperRoman,
    LowerRoman,
    UpperLetter,
    LowerLetter,
    TwoDigits, // at least
    Bullet
};

enum class RtfWord : std::uint8_t {
    None,
    // Break
    EndParagraph,
    EndPage, // ends a paragraph that has begun, too
    BreakLine,
    EndCell,
    EndRow,
    EndNestedCell,
    EndNestedRow,
    NoteNumber,
    // Character
    Plain,
    Bold,
    Italic,
    Underline,
    NoUnderline,
    Strike,
    Capitals, // `value` is the Capitals
    Hidden,
    Superscript,
    Subscript,
    NormalScript,
    Raised,
    Lowered,
    Font,
    FontSize,
    Foreground,
    Background,
    RunDirection, // `value` is 1 for right to left
    // Paragraph
    ParagraphDefaults,
    Align, // `value` is the Alignment
    LeftIndent,
    RightIndent,
    FirstLineIndent,
    SpaceBefore,
    SpaceAfter,
    LineSpacing,
    LineSpacingIsMultiple,
    ParagraphDirection, // `value` is 1 for right to left
    TabAlignment,       // of the next stop
    TabLeader,
    TabStop,
    ParagraphBackground,
    ShadingPattern, // its colour
    Shading,        // hundredths of a percent of the pattern over the background
    DropCapLines,
    StyleNumber,
    OutlineLevel, // 0 is the highest, 9 is no heading
    InTable,
    ListNumber, // in the table of overrides, the number that paragraphs give
    ListLevel,  // 0 is the highest
    // Row
    RowDefaults,
    CellRightEdge,
    RowLeftEdge,
    CellGap,
    MergedLeft,
    MergedAbove,
    CellBackground,
    CellVerticalAlignment, // `value` is the VerticalAlignment
    RowDirection,          // `value` is 1 for right to left
    // Border
    BorderSide,  // `value` is the RtfBorderSide
    BorderStyle, // `value` is the width in twips unless another is given, 0 for no border
    BorderWidth,
    BorderSpace,
    BorderColor,
    // Picture
    PictureKind, // `value` is the PictureFormat
    PictureIsBitmap,
    PictureWidth,
    PictureHeight,
    PictureGoalWidth,
    PictureGoalHeight,
    PictureScaleX,
    PictureScaleY,
    // FontTable
    FontCharset,
    FontCodePage,
    // ColorTable
    Red,
    Green,
    Blue,
    // Document
    CharacterSet, // `value` is the code page, 0 for the system's
    AnsiCodePage,
    DefaultFont,
    DefaultTab,
    // Numbering
    NumberKind, // `value` is the RtfNumberKind
    NumberStart,
    NumberedParagraph,
    BulletedParagraph,
    ContinuedParagraph, // of the one before, without a number
    // List
    ListId,
    LevelKind,
    LevelStart,
    LevelFollow,
    LevelLegal,
    LevelGoesOn,
    LevelStartsAnew,
    // FormField
    FormResult,
    FormDefaultResult,
    // Math
    MathNumerator,
    MathDenominator,
    MathRadical,
    MathDelimiters, // brackets around the part
    MathOperator,   // a sum, an integral
    MathAccent,     // over the part
    MathSpaced,     // a blank follows the part
    // Unicode
    UnicodeCharacter,
    FallbackLength,
};

// The border that the following border words apply to: of a cell; of all cells of a row without
// borders of their own (between them the inner ones); of a paragraph; None for what is not shown.
enum class RtfBorderSide : std::uint8_t {
    Left,
    Top,
    Right,
    Bottom,
    RowLeft,
    RowTop,
    RowRight,
    RowBottom,
    InnerHorizontal,
    InnerVertical,
    ParagraphLeft,
    ParagraphTop,
    ParagraphRight,
    ParagraphBottom,
    ParagraphBetween,
    ParagraphBox, // all four
    None
};

struct RtfWordEntry {
    std::string_view name;
    RtfFamily family = RtfFamily::Destination;
    RtfWord word = RtfWord::None;
    std::int32_t value = 0; // for a destination, the RtfDestination
};

// nullptr for a word that the reader ignores. Names are case-sensitive.
const RtfWordEntry* FindRtfWord(std::string_view name);
