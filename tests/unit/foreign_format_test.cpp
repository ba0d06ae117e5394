// Files of other formats, by their first bytes.
#include "formats/foreign_format.h"

#include <doctest/doctest.h>

#include <string>
#include <utility>

using namespace std::string_literals;

namespace {
// The first entry of an archive.
std::string Zip(const std::string& name, const std::string& content = "") {
    std::string bytes = "PK\3\4\x14\0\0\0\0\0"s + std::string(16, '\0');
    bytes += static_cast<char>(name.size());
    return bytes + std::string(3, '\0') + name + content;
}

std::string WindowsProgram(const std::string& header) {
    std::string bytes = "MZ\x90\0"s + std::string(0x38, '\0') + "\x80\0\0\0"s;
    bytes.resize(0x80, '\0');
    return bytes + header;
}

std::string Utf16(const std::string& ascii) {
    std::string bytes;
    for (const char c : ascii)
        bytes += {c, '\0'};
    return bytes;
}
} // namespace

TEST_CASE("foreign format: what is recognised") {
    const std::pair<std::string, const char16_t*> table[] = {
        {Zip("mimetype", "application/epub+zipPK\3\4"), u"an e-book in EPUB format"},
        {Zip("mimetype", "application/vnd.oasis.opendocument.textPK"),
         u"an OpenDocument file, such as ODT"},
        {Zip("mimetype", "image/x-other"), u"a compressed archive"},
        {Zip("[Content_Types].xml"), u"an Office document, such as DOCX"},
        {Zip("word/document.xml"), u"an Office document, such as DOCX"},
        {Zip("book.txt"), u"a compressed archive"},
        {"PK\5\6"s + std::string(18, '\0'), u"a compressed archive"},
        {"7z\xBC\xAF\x27\x1C\0\4"s, u"a compressed archive"},
        {"Rar!\x1A\7\1\0"s, u"a compressed archive"},
        {"\x1F\x8B\x08\0"s, u"a compressed file"},
        {"BZh91AY&SY\xA1"s, u"a compressed file"},
        {"\xFD\x37zXZ\0\0\4"s, u"a compressed file"},
        {"\x28\xB5\x2F\xFD\4\0"s, u"a compressed file"},
        {"%PDF-1.7\n%\xE2\xE3\xCF\xD3\n1 0 obj"s, u"a PDF document"},
        {"%PDF-1.4\r\n%\xC7\xEC\x8F\xA2\r\n"s, u"a PDF document"},
        {"%PDF-1.1\n1 0 obj << >> stream\1\2"s, u"a PDF document"},
        {"\xD0\xCF\x11\xE0\xA1\xB1\x1A\xE1"s, u"an Office document of the older kind, such as DOC"},
        {std::string(60, 'a') + "BOOKMOBI\0\1"s, u"an e-book in MOBI format"},
        {"AT&TFORM\0\1"s, u"a DjVu document"},
        {"ITSF\3\0"s, u"a help file in CHM format"},
        {"\x89PNG\r\n\x1A\n\0\0"s, u"a picture"},
        {"\xFF\xD8\xFF\xE0\0\x10JFIF"s, u"a picture"},
        {"GIF89a\1\0\1\0"s, u"a picture"},
        {"BM\x46\1\0\0\0\0\0\0\x36"s, u"a picture"},
        {"II*\0\x08\0\0\0"s, u"a picture"},
        {"RIFF\x10\0\0\0WEBPVP8 "s, u"a picture"},
        {"RIFF\x10\0\0\0WAVEfmt "s, u"a sound or a film"},
        {"ID3\4\0"s, u"a sound or a film"},
        {"\0\0\0\x18"s + "ftypmp42", u"a sound or a film"},
        {"\x7F"
         "ELF\2\1"s,
         u"a program"},
        {WindowsProgram("PE\0\0"s), u"a program"},
        {WindowsProgram("NE\5"), u"a program"},
        {"SQLite format 3\0"s, u"a database"},
    };
    for (const auto& row : table) {
        const std::string& bytes = row.first;
        CAPTURE(bytes);
        CHECK(ForeignFormat(bytes) == row.second);
        // Anything shorter is read without a look beyond its end.
        for (std::size_t size = 0; size < bytes.size(); ++size)
            ForeignFormat(std::string(bytes, 0, size));
    }
}

TEST_CASE("foreign format: what may be text") {
    for (const std::string& bytes : {
             ""s,
             "Once upon a time."s,
             "{\\rtf1 PK}"s,
             "<!DOCTYPE html>"s,
             "%PDF-1.7 is how such a file begins.\n%\nNothing else of it is here.\n"s,
             "%PDF-"s,
             "%PDF-1.7\n% \xFC"
             "ber\n"s,
             "PK said nothing.\n"s,
             "MZ, as he signed his letters, had died before this one came to be posted.\n"s,
             "BM is the British Museum.\n"s,
             "GIF89a is a name.\n\x1B$B\x0E\x0F\x08"s,
             "ID3 is a tag.\n"s,
             "Rar! he cried.\n"s,
             "BZh91"s,
             "SQLite format 3 is its first line.\n"s,
             "II*: a chapter.\n"s,
             "\xFF\xD8\xFF, \xF1\xEA\xE0\xE7\xE0\xEB \xEE\xED.\n"s, // Windows-1251
             "\xFF\xFE"s + Utf16("%PDF-1.7"),
             Utf16("MZ and nobody else knew of it. He had written it down, and then he left."),
             Utf16("GIF89a"),
             "\xFF\xFE\0\0P\0\0\0K\0\0\0\3\0\0\0"s,
             std::string(600, '\0'),
         }) {
        CAPTURE(bytes);
        CHECK(ForeignFormat(bytes) == u"");
    }
}
