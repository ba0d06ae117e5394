// Text in a Windows code page, read the same on every system from our own tables.
#pragma once

#include <string>
#include <string_view>

constexpr int utf8Page = 65001;

// Charsets for which Windows has no number.
constexpr int visciiPage = 70001;
constexpr int tcvnPage = 70002;
constexpr int mikPage = 70005;    // Bulgarian of DOS
constexpr int kazakhPage = 70006; // KZ-1048: 1251 with the letters of Kazakh
constexpr int asianPage = 70007;  // PT154: with those of Kazakh, Tatar, Bashkir and others

// Hebrew that is kept as it is seen, from left to right; 28598 of Windows is, too, and 38598 the
// same letters in logical order.
constexpr int visualIsoPage = 28598;
constexpr int logicalIsoPage = 38598;
constexpr int visualDosPage = 70003;     // the letters of 862
constexpr int visualWindowsPage = 70004; // the letters of 1255

// Whether lines in this page are in visual order. DecodeCodePage leaves them so, DecodeAs of
// plain/plain_text.h does not.
bool IsVisualOrder(int codePage);
// The page of the same letters in logical order; any other page itself.
int LogicalOrderPage(int codePage);
// The page of the same letters in the other order; 0 when there is none.
int OtherOrderPage(int codePage);

// Whether `DecodeCodePage` knows this page: of DOS 437, 720, 737, 775, 850, 852, 855, 857, 858, 860
// to 866, 869, 1125; of Windows 874, 932, 936, 949, 950, 1250 to 1258, 1361; of the Macintosh 10000
// (Roman), 10001 (Japanese), 10006 (Greek), 10007 (Cyrillic), 10010 (Romanian), 10029 (Latin 2),
// 10079 (Icelandic), 10081 (Turkish), 10082 (Croatian); 20866 (KOI8-R), 21866 (KOI8-U), 28591 to
// 28606 and 38598 (ISO 8859), 51932 (EUC-JP), 51950 (EUC-TW), 54936 (GB18030), 65001 (UTF-8),
// VISCII, TCVN 5712, MIK, KZ-1048, PT154, DOS 862 and Windows 1255 in visual order; and, for whole
// texts only, those of codepages/escaped_text.h.
bool HasCodePage(int codePage);

// Appends the text of `bytes`. A byte or sequence without a meaning becomes one U+FFFD, and so does
// a lead byte at the end. An unknown page is read as 1252. 936 also reads what GB18030 adds.
void DecodeCodePage(int codePage, std::string_view bytes, std::u16string& text);

// The 128 characters of the bytes from 0x80 on, of a page of single bytes; nullptr for others.
const char16_t* UpperHalf(int codePage);

// Whether every byte is one unit.
bool IsSingleBytePage(int codePage);

// Whether this byte begins a double-byte character of the page (false for single-byte pages).
bool IsLeadByte(int codePage, unsigned char byte);

// Of how many bytes the character is that begins with these, as far as they tell: at least one.
std::size_t SequenceLength(int codePage, std::string_view bytes);

// Where the character ends that holds the byte before `place`, when `bytes` begins with a whole
// character: so a long text is cut into parts that decode by themselves. `place` must not be after
// the bytes.
std::size_t CharacterEnd(int codePage, std::string_view bytes, std::size_t place);

// The page of a Windows font character set number, 0 when it has none of its own (see charsets).
// 77 gives 10000, 78 gives 10001, 254 gives 437 and so on, as RTF's \fcharset needs.
int CodePageOfFontCharset(int charset);
