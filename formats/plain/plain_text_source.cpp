#include "formats/plain/plain_text_source.h"

#include "common/decode_pieces.h"
#include "common/file_limits.h"
#include "common/utf.h"
#include "formats/codepages/code_pages.h"
#include "formats/codepages/escaped_text.h"
#include "formats/plain/plain_text_guess.h"
#include "formats/plain/plain_text_pieces.h"
#include "formats/plain/visual_lines.h"

#include <algorithm>
#include <vector>

namespace {
constexpr std::size_t maxDecoded = 8; // pieces kept: a screen needs one or two

// UTF-8 but for a sequence cut by the end of the file; not so when nothing else shows that it is.
bool IsTruncatedUtf8(std::string_view lastBytes, bool asciiSoFar) {
    const std::size_t valid = ValidUtf8Length(lastBytes);
    if (valid == lastBytes.size()) return false;
    const bool ascii = asciiSoFar && IsAscii(lastBytes.substr(0, valid));
    return !ascii && IsTruncatedUtf8Sequence(lastBytes.substr(valid));
}
} // namespace

PlainTextSource::PlainTextSource(std::shared_ptr<const FileReader> file, int bookCodePage,
                                 int systemCodePage, std::size_t pieceBytes)
    : file_(std::move(file)), pieceBytes_(pieceBytes) {
    const std::string start = BytesBetween(0, guessSample);
    if (const auto marked = MarkedForm(start)) {
        form_ = *marked;
        ConvertEscaped();
        MarkPieces(false);
    } else if (!MarkPieces(true)) {
        form_ = GuessForm(start, bookCodePage, systemCodePage);
        MarkPieces(false);
    }
}

PlainTextSource::PlainTextSource(std::shared_ptr<const FileReader> file, const PlainTextForm& form,
                                 std::size_t pieceBytes)
    : file_(std::move(file)), pieceBytes_(pieceBytes), form_(form) {
    ConvertEscaped();
    MarkPieces(false);
}

// No piece of a text with escape sequences decodes by itself, so it becomes one of UTF-8. Such
// texts are relics of mail, and small; one above the limit of a file in memory is cut there.
void PlainTextSource::ConvertEscaped() {
    if (form_.encoding != TextEncoding::CodePage || !IsEscapedPage(form_.codePage)) return;
    file_ = std::make_shared<BytesReader>(
        Utf16ToUtf8(DecodeAs(form_, BytesBetween(0, maxFileInMemory))));
    form_ = {};
}

// After a run along the pieces that ended at one that is not UTF-8.
PlainTextForm PlainTextSource::GuessForm(std::string_view start, int bookCodePage,
                                         int systemCodePage) const {
    const std::uint64_t size = std::min(file_->Size(), maxPlainTextSize);
    const std::uint64_t last = marks_.empty() ? 0 : marks_.back().byte;
    const std::string piece = BytesBetween(last, last + pieceBytes_ + PieceLookahead({}));
    std::vector<std::string> read;
    for (const SamplePlace& place : SamplePlaces(size, last + ValidUtf8Length(piece)))
        read.push_back(place.begin == 0 ? std::string()
                                        : BytesBetween(place.begin, place.begin + place.length));
    std::vector<std::string_view> samples(read.begin(), read.end());
    samples.front() = start;
    return CodePageForm(samples, bookCodePage, systemCodePage);
}

// False at the first piece that is not UTF-8, when it must be; the last mark is its start then.
bool PlainTextSource::MarkPieces(bool onlyUtf8) {
    const std::uint64_t size = std::min(file_->Size(), maxPlainTextSize);
    std::string buffer(pieceBytes_ + PieceLookahead(form_), '\0');
    Mark mark{form_.markLength, 0};
    bool ascii = true, cut = false; // within a sequence, whose bytes may be in several pieces
    marks_.clear();
    while (mark.byte < size) {
        const auto count =
            static_cast<std::size_t>(std::min<std::uint64_t>(buffer.size(), size - mark.byte));
        const std::string_view bytes(buffer.data(), file_->ReadAt(mark.byte, buffer.data(), count));
        if (bytes.empty()) break; // the file has become shorter
        const std::string_view piece = bytes.substr(0, PieceEnd(form_, bytes, pieceBytes_));
        const PieceMeasure measure = Measure(form_, piece);
        if (onlyUtf8 && !measure.utf8 && !cut) {
            cut = mark.byte + bytes.size() >= size && IsTruncatedUtf8(bytes, ascii);
            if (!cut) {
                marks_.push_back(mark);
                return false;
            }
        }
        ascii = ascii && measure.ascii;
        marks_.push_back(mark);
        mark.byte += piece.size();
        mark.position += static_cast<TextPos>(measure.units);
    }
    marks_.push_back(mark);
    return true;
}

std::size_t PlainTextSource::PieceWith(TextPos position) const {
    const auto after =
        std::upper_bound(marks_.begin() + 1, marks_.end() - 1, position,
                         [](TextPos wanted, const Mark& mark) { return wanted < mark.position; });
    return static_cast<std::size_t>(after - marks_.begin()) - 1;
}

// Of a byte before the text, the first.
std::size_t PlainTextSource::PieceWithByte(std::uint64_t byte) const {
    const auto after =
        std::upper_bound(marks_.begin() + 1, marks_.end() - 1, byte,
                         [](std::uint64_t wanted, const Mark& mark) { return wanted < mark.byte; });
    return static_cast<std::size_t>(after - marks_.begin()) - 1;
}

std::string PlainTextSource::BytesBetween(std::uint64_t from, std::uint64_t to) const {
    const std::uint64_t end = std::min({to, file_->Size(), maxPlainTextSize});
    return BytesAt(*file_, from, end - std::min(from, end));
}

std::u16string PlainTextSource::Decode(std::size_t piece) const {
    const Mark &from = marks_[piece], &to = marks_[piece + 1];
    std::u16string text = DecodePiece(form_, BytesBetween(from.byte, to.byte));
    text.resize(static_cast<std::size_t>(to.position - from.position), u'\uFFFD');
    return text;
}

TextPiece PlainTextSource::PieceAt(TextPos position) const {
    const std::size_t wanted = PieceWith(position);
    const auto known = std::find_if(decoded_.begin(), decoded_.end(),
                                    [=](const Decoded& each) { return each.piece == wanted; });
    if (known != decoded_.end()) {
        decoded_.splice(decoded_.begin(), decoded_, known);
    } else {
        decoded_.push_front({wanted, Decode(wanted)});
        if (decoded_.size() > maxDecoded) decoded_.pop_back();
    }
    return {marks_[wanted].position, decoded_.front().text};
}

// The place of a character in the order of the file's bytes, or back. They differ within lines in
// visual order.
TextPos PlainTextSource::InOrderOf(bool file, TextPos position) const {
    if (!IsVisualOrder(form_.codePage) || position >= Length()) return position;
    const std::size_t piece = PieceWith(position);
    const Mark &from = marks_[piece], &to = marks_[piece + 1];
    const std::u16string bytes = DecodePiece({form_.encoding, LogicalOrderPage(form_.codePage)},
                                             BytesBetween(from.byte, to.byte));
    const auto place = static_cast<std::size_t>(position - from.position);
    const std::size_t other = file ? VisualPlaceOf(bytes, place) : LogicalPlaceOf(bytes, place);
    return from.position + static_cast<TextPos>(other);
}

// Halves the piece, always at the end of a character, until one character is left.
std::uint64_t PlainTextSource::ByteOf(TextPos position) const {
    position = std::max(position, 0);
    if (position >= Length()) return marks_.back().byte;
    position = InOrderOf(true, position);
    const std::size_t piece = PieceWith(position);
    const std::string bytes = BytesBetween(marks_[piece].byte, marks_[piece + 1].byte);
    std::string_view part = bytes;
    std::size_t before = static_cast<std::size_t>(position - marks_[piece].position);
    while (!part.empty()) {
        const std::size_t half = part.size() > 2 * characterLookahead ? part.size() / 2 : 1;
        const std::size_t end = CharactersEnd(form_, part, half);
        const std::size_t units = Measure(form_, part.substr(0, end)).units;
        if (units <= before) {
            before -= units;
            part.remove_prefix(end);
        } else if (half > 1) {
            part = part.substr(0, end);
        } else {
            break;
        }
    }
    return marks_[piece].byte + static_cast<std::uint64_t>(part.data() - bytes.data());
}

TextPos PlainTextSource::PositionOf(std::uint64_t byte) const {
    if (byte <= marks_.front().byte) return InOrderOf(false, 0);
    if (byte >= marks_.back().byte) return Length();
    const std::size_t piece = PieceWithByte(byte);
    const Mark& from = marks_[piece];
    if (byte == from.byte) return InOrderOf(false, from.position);
    const std::string bytes = BytesBetween(from.byte, marks_[piece + 1].byte);
    const std::size_t end =
        std::min<std::size_t>(static_cast<std::size_t>(byte - from.byte), bytes.size());
    const std::string_view before(bytes.data(), CharactersEnd(form_, bytes, end));
    return InOrderOf(false, from.position + static_cast<TextPos>(Measure(form_, before).units));
}
