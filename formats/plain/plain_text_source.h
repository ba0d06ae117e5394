// The text of a plain-text book of any size: its bytes stay in the file, and what is shown of them
// is decoded when it is needed.
#pragma once

#include "common/file_reader.h"
#include "common/text_source.h"
#include "formats/plain/plain_text.h"

#include <cstdint>
#include <list>
#include <memory>
#include <vector>

// The rest of a longer file is left out: positions have 32 bits.
constexpr std::uint64_t maxPlainTextSize = std::uint64_t{1900} << 20; // bytes

class TextSearch;

class PlainTextSource : public TextSource {
  public:
    // Reads the whole file once to know its length in units and where its pieces begin. The text is
    // DecodePlainText's with line ends unified. Bytes that go or change later show as U+FFFD or as
    // what they are then; positions stay. Of a text in an escaped encoding (ISO 2022 and its
    // like), which no piece tells by itself, the first maxFileInMemory bytes are the text.
    PlainTextSource(std::shared_ptr<const FileReader> file, int bookCodePage, int systemCodePage,
                    std::size_t pieceBytes = 64 * 1024);

    // The same of a text whose form is known.
    PlainTextSource(std::shared_ptr<const FileReader> file, const PlainTextForm& form,
                    std::size_t pieceBytes = 64 * 1024);

    int CodePage() const { return form_.codePage; } // 0 for Unicode

    TextPos Length() const override { return marks_.back().position; }
    TextPiece PieceAt(TextPos position) const override;
    TextPos FindWhile(std::u16string_view what, TextPos start, FindOptions options,
                      const std::function<bool()>& shouldContinue) const override;

    // The byte of the file at which the character at a position begins, and back: the position of
    // the first character that begins at or after a byte. Both moved into the text.
    std::uint64_t ByteOf(TextPos position) const;
    TextPos PositionOf(std::uint64_t byte) const;

  private:
    // Where a piece begins; the last mark is the end of the text.
    struct Mark {
        std::uint64_t byte = 0;
        TextPos position = 0;
    };
    struct Decoded {
        std::size_t piece = 0;
        std::u16string text;
    };

    bool MarkPieces(bool onlyUtf8);
    void ConvertEscaped();
    PlainTextForm GuessForm(std::string_view start, int bookCodePage, int systemCodePage) const;
    std::size_t PieceWith(TextPos position) const;
    std::size_t PieceWithByte(std::uint64_t byte) const;
    std::string BytesBetween(std::uint64_t from, std::uint64_t to) const;
    std::u16string Decode(std::size_t piece) const;
    TextPos InOrderOf(bool file, TextPos position) const;
    TextPos FindIn(std::size_t piece, const TextSearch& search, TextPos start,
                   TextPos length) const;

    std::shared_ptr<const FileReader> file_;
    std::size_t pieceBytes_;
    PlainTextForm form_;
    std::vector<Mark> marks_;
    mutable std::list<Decoded> decoded_; // the last used first
};
