#include "common/unicode.h"

#include <doctest/doctest.h>

#include <initializer_list>

TEST_CASE("marks and format characters") {
    for (const char32_t character : {0x0301, 0x0903, 0x20DD, 0x05B8, 0xAD, 0x200D, 0x202A, 0xE0020})
        CHECK(IsMarkOrFormat(character));
    for (const char32_t character : {U'a', U' ', U'\n', U'\u4E2D', U'\uD55C', U'\U0001F600'})
        CHECK_FALSE(IsMarkOrFormat(character));
}

TEST_CASE("characters that no font is sure to have") {
    for (const char32_t character : {0x0378, 0xE000, 0xFFFF, 0xF0000, 0x10FFFF, 0x1FFFFE})
        CHECK(IsUnassignedOrPrivate(character) == (character <= 0x10FFFF));
    CHECK_FALSE(IsUnassignedOrPrivate(U'\uFFFD'));
    CHECK_FALSE(IsUnassignedOrPrivate(0xD800));
}

TEST_CASE("viramas") {
    CHECK(IsVirama(0x094D));
    CHECK(IsVirama(0x0D4D));
    CHECK_FALSE(IsVirama(0x093C));
}

TEST_CASE("spaces, also those that no line breaks at") {
    for (const char16_t unit : {u' ', u'\t', u'\v', u'\u00A0', u'\u2003', u'\u202F', u'\u3000'})
        CHECK(IsSpaceCharacter(unit));
    for (const char16_t unit : {u'a', u'\u200B', u'\uFEFF', u'\u1FFF', u'\0'})
        CHECK_FALSE(IsSpaceCharacter(unit));
}

TEST_CASE("the directions of characters") {
    CHECK(StrongDirection(U'a') == Direction::LeftToRight);
    CHECK(StrongDirection(0x1D11E) == Direction::LeftToRight);
    CHECK(StrongDirection(0x05D0) == Direction::RightToLeft);
    CHECK(StrongDirection(0x0645) == Direction::RightToLeft);
    CHECK(StrongDirection(0x1E900) == Direction::RightToLeft);
    for (const char32_t character : {U'1', U' ', U'.', U'\u0301', U'\u2028', U'\u0661'})
        CHECK(StrongDirection(character) == Direction::Neutral);
    CHECK(BidiClassOf(U'1') == BidiClass::EN);
    CHECK(BidiClassOf(0x0661) == BidiClass::AN);
    CHECK(BidiClassOf(U'$') == BidiClass::ET);
    CHECK(BidiClassOf(0x05B8) == BidiClass::NSM);
}

TEST_CASE("wide characters, brackets and parts of words") {
    CHECK(IsWide(0x4E2D));
    CHECK(IsWide(0x20000));
    CHECK(IsWide(0xFF21));
    CHECK_FALSE(IsWide(U'A'));
    CHECK(IsOpening(U'('));
    CHECK(IsClosing(0x300D));
    CHECK(WordPartOf(U'x') == WordPart::Letter);
    CHECK(WordPartOf(U'7') == WordPart::Number);
    CHECK(WordPartOf(0x0301) == WordPart::Mark);
    CHECK(WordPartOf(U'-') == WordPart::None);
}

TEST_CASE("how characters join into clusters") {
    CHECK(ClusterJoinOf(0x0301) == ClusterJoin::Extending);
    CHECK(ClusterJoinOf(0x200D) == ClusterJoin::Joiner);
    CHECK(ClusterJoinOf(0x1F468) == ClusterJoin::Pictograph);
    CHECK(ClusterJoinOf(0x1F3FD) == ClusterJoin::Extending);
    CHECK(ClusterJoinOf(0x1F1E9) == ClusterJoin::RegionalIndicator);
    CHECK(ClusterJoinOf(0x1112) == ClusterJoin::LeadingJamo);
    CHECK(ClusterJoinOf(0xAC00) == ClusterJoin::OpenSyllable);
    CHECK(ClusterJoinOf(0xAC01) == ClusterJoin::ClosedSyllable);
    CHECK(ClusterJoinOf(0x200E) == ClusterJoin::Control);
}
