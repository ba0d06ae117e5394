#include "formats/foreign_format.h"

#include <algorithm>
#include <cstdint>

using namespace std::string_view_literals;

namespace {
// Those of letters alone could begin a text, too, and need another sign.
enum class Certain { Always, WithBinaryBytes };

struct Signature {
    std::size_t offset;
    std::string_view bytes;
    std::u16string_view format;
    Certain certain = Certain::Always;
};

constexpr std::u16string_view compressed = u"a compressed file", archive = u"a compressed archive",
                              media = u"a sound or a film";

constexpr Signature signatures[] = {
    {0, "\x1F\x8B\x08"sv, compressed},
    {0, "\xFD\x37zXZ\0"sv, compressed},
    {0, "\x28\xB5\x2F\xFD"sv, compressed, Certain::WithBinaryBytes},
    {0, "7z\xBC\xAF\x27\x1C"sv, archive},
    {0, "Rar!\x1A\x07"sv, archive},
    {0, "\xD0\xCF\x11\xE0\xA1\xB1\x1A\xE1"sv, u"an Office document of the older kind, such as DOC"},
    {60, "BOOKMOBI"sv, u"an e-book in MOBI format", Certain::WithBinaryBytes},
    {0, "AT&TFORM"sv, u"a DjVu document", Certain::WithBinaryBytes},
    {0, "ITSF"sv, u"a help file in CHM format", Certain::WithBinaryBytes},
    {0, "\x89PNG\r\n\x1A\n"sv, u"a picture"},
    {0, "\xFF\xD8\xFF"sv, u"a picture", Certain::WithBinaryBytes},
    {0, "GIF87a"sv, u"a picture", Certain::WithBinaryBytes},
    {0, "GIF89a"sv, u"a picture", Certain::WithBinaryBytes},
    {0, "II*\0"sv, u"a picture"},
    {0, "MM\0*"sv, u"a picture"},
    {8, "WEBPVP8"sv, u"a picture", Certain::WithBinaryBytes},
    {0, "ID3"sv, media, Certain::WithBinaryBytes},
    {0, "OggS\0"sv, media},
    {0, "fLaC\0"sv, media},
    {0, "\x1A\x45\xDF\xA3"sv, media},
    {4, "ftyp"sv, media, Certain::WithBinaryBytes},
    {8, "WAVEfmt "sv, media, Certain::WithBinaryBytes},
    {8, "AVI LIST"sv, media, Certain::WithBinaryBytes},
    {0,
     "\x7F"
     "ELF"sv,
     u"a program", Certain::WithBinaryBytes},
    {0, "SQLite format 3\0"sv, u"a database"},
};

// No text has these: the others are white space, backspace, and the shifts and escapes of ISO-2022.
bool IsBinary(char unit) {
    const auto byte = static_cast<unsigned char>(unit);
    return byte < 8 || (byte >= 0x10 && byte < 0x1A) || (byte >= 0x1C && byte < 0x20);
}

bool HasBinaryBytes(std::string_view bytes) {
    return std::ranges::any_of(bytes, IsBinary);
}

std::string_view From(std::string_view bytes, std::size_t offset) {
    return bytes.substr(std::min(offset, bytes.size()));
}

std::uint32_t LittleEndian(std::string_view bytes, int count) {
    std::uint32_t value = 0;
    for (int i = count - 1; i >= 0; --i)
        value = value << 8 | static_cast<unsigned char>(bytes[static_cast<std::size_t>(i)]);
    return value;
}

bool Matches(const Signature& signature, std::string_view start) {
    return From(start, signature.offset).starts_with(signature.bytes) &&
           (signature.certain == Certain::Always || HasBinaryBytes(start));
}

bool IsBzip2(std::string_view start) {
    return start.starts_with("BZh") && From(start, 4).starts_with("1AY&SY"); // after a digit
}

// Letters and a size come first, then a field that is always zero.
bool IsBitmap(std::string_view start) {
    return start.starts_with("BM") && From(start, 6).starts_with("\0\0\0\0"sv);
}

// By its first entry: the formats made of an archive have a certain one there.
std::u16string_view ZipFormat(std::string_view start) {
    constexpr std::size_t nameLength = 26, name = 30; // offsets in the header of an entry
    if (start.starts_with("PK\5\6")) return archive;
    if (!start.starts_with("PK\3\4") || start.size() < name) return u"";
    const std::string_view entry = start.substr(name, LittleEndian(start.substr(nameLength), 2));
    if (entry == "mimetype") {
        if (start.find("application/epub+zip") != start.npos) return u"an e-book in EPUB format";
        if (start.find("application/vnd.oasis.opendocument") != start.npos)
            return u"an OpenDocument file, such as ODT";
    }
    const auto begins = [entry](std::string_view folder) { return entry.starts_with(folder); };
    constexpr std::string_view office[] = {
        "[Content_Types].xml", "_rels/", "docProps/", "word/", "xl/", "ppt/"};
    return std::ranges::any_of(office, begins) ? u"an Office document, such as DOCX" : archive;
}

// Its writers put four bytes above 7F into a comment at its second line, so that no program takes
// it for text.
bool IsPdf(std::string_view start) {
    if (!start.starts_with("%PDF-")) return false;
    if (HasBinaryBytes(start)) return true;
    const std::size_t end = start.find_first_of("\r\n");
    const std::size_t next = start.find_first_not_of("\r\n", end);
    const std::string_view line = next == start.npos ? "" : start.substr(next);
    return line.size() > 4 && line[0] == '%' && std::ranges::all_of(line.substr(1, 4), [](char c) {
               return static_cast<unsigned char>(c) > 0x7F;
           });
}

// "MZ" alone could be anybody's initials: the program's own header follows at the place named at
// 3C, and before it a small program for DOS.
bool IsWindowsProgram(std::string_view start) {
    constexpr std::size_t placeOfHeader = 0x3C;
    if (!start.starts_with("MZ") || start.size() < placeOfHeader + 4) return false;
    const std::string_view header = From(start, LittleEndian(start.substr(placeOfHeader), 4));
    return header.starts_with("PE\0\0"sv) || header.starts_with("NE") || header.starts_with("LE");
}
} // namespace

std::u16string_view ForeignFormat(std::string_view firstBytes) {
    const std::string_view start = firstBytes.substr(0, foreignFormatStart);
    if (const auto zip = ZipFormat(start); !zip.empty()) return zip;
    if (IsPdf(start)) return u"a PDF document";
    if (IsWindowsProgram(start)) return u"a program";
    if (IsBzip2(start)) return compressed;
    if (IsBitmap(start)) return u"a picture";
    const auto match = std::ranges::find_if(
        signatures, [start](const Signature& signature) { return Matches(signature, start); });
    return match == std::end(signatures) ? u"" : match->format;
}
