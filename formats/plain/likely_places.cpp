#include "formats/plain/likely_places.h"

#include <algorithm>

namespace {
// Read at once; little at first, because what is looked for is often near.
constexpr std::size_t minRead = 64 * 1024, maxRead = 1024 * 1024;
constexpr std::size_t sampleBytes = 4096; // of what is read
// Looked through for one letter, then for another, while the processor has it at hand.
constexpr std::size_t blockBytes = 32 * 1024;
// When so many places have come to nothing, decoding all around them is sooner done.
constexpr int maxFalseHits = 256;
constexpr std::uint64_t maxUnitSize = 4; // bytes
} // namespace

LikelyPlaces::LikelyPlaces(const FileReader& file, EncodedSearch& search, ByteRange text,
                           std::uint64_t start, const std::function<bool()>& goesOn)
    : file_(file), search_(search), text_(text), goesOn_(goesOn),
      buffer_(std::make_unique_for_overwrite<char[]>(maxRead + 2 * search.Margin() + maxUnitSize)),
      toSearch_{start, start}, toRead_(minRead) {}

bool LikelyPlaces::ReadMore() {
    const std::uint64_t start = toSearch_.from;
    if (start >= text_.to) return false;
    givenUp_ = !goesOn_();
    if (givenUp_) return false;
    const std::uint64_t before = std::min<std::uint64_t>(start - text_.from, search_.Margin());
    base_ = start - before;
    base_ -= (base_ - text_.from) % maxUnitSize;
    toSearch_.to = std::min(start + toRead_, text_.to);
    const std::uint64_t end = std::min(toSearch_.to + search_.Margin(), text_.to);
    const auto count = static_cast<std::size_t>(end - base_);
    bytes_ = std::string_view(buffer_.get(), file_.ReadAt(base_, buffer_.get(), count));
    cut_ = bytes_.size() < count;
    search_.LearnFrom(bytes_.substr(bytes_.size() / 2, sampleBytes));
    toRead_ = std::min(2 * toRead_, maxRead);
    return true;
}

std::optional<std::uint64_t> LikelyPlaces::Next() {
    for (;;) {
        while (nextPlace_ < places_.size())
            if (const std::uint64_t place = base_ + places_[nextPlace_++]; IsLikely(place))
                return place;
        if (toSearch_.from >= toSearch_.to && !ReadMore()) return std::nullopt;
        if (search_.IsBlind()) return toSearch_.from;
        const std::uint64_t end = std::min(toSearch_.from + blockBytes, toSearch_.to);
        places_ = search_.Places(bytes_, static_cast<std::size_t>(toSearch_.from - base_),
                                 static_cast<std::size_t>(end - base_));
        nextPlace_ = 0;
        toSearch_.from = end;
    }
}

bool LikelyPlaces::IsLikely(std::uint64_t place) {
    if (place < skipped_) return false;
    const bool likely =
        cut_ || triesInVain_ == maxFalseHits ||
        search_.MayBeAround(bytes_, static_cast<std::size_t>(place - base_), base_ == text_.from);
    triesInVain_ = likely ? 0 : triesInVain_ + 1;
    return likely;
}

void LikelyPlaces::SkipTo(std::uint64_t byte) {
    skipped_ = byte;
    toSearch_.from = std::max(toSearch_.from, byte);
}
