// Goes through the file of a plain text for places where something looked for is likely to stand.
#pragma once

#include "common/file_reader.h"
#include "formats/plain/encoded_search.h"

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <vector>

// Bytes of the file, those before `to`.
struct ByteRange {
    std::uint64_t from = 0, to = 0;
};

class LikelyPlaces {
  public:
    // All are observed. The text is what is behind a byte-order mark. Whether to go on is asked for
    // each megabyte.
    LikelyPlaces(const FileReader& file, EncodedSearch& search, ByteRange text, std::uint64_t start,
                 const std::function<bool()>& goesOn);

    // The next place, from the start on. Each match that begins at the start or behind it has one
    // among its bytes.
    std::optional<std::uint64_t> Next();
    void SkipTo(std::uint64_t byte);
    bool IsGivenUp() const { return givenUp_; } // so there was no next one

  private:
    bool ReadMore();
    bool IsLikely(std::uint64_t place);

    const FileReader& file_;
    EncodedSearch& search_;
    ByteRange text_;
    const std::function<bool()>& goesOn_;
    std::unique_ptr<char[]> buffer_;
    std::string_view bytes_; // read last
    std::uint64_t base_ = 0; // where they are in the file
    ByteRange toSearch_;     // of them, but for the places already known
    std::size_t toRead_ = 0; // the next time
    bool givenUp_ = false;
    bool cut_ = false;                // the file has become shorter
    std::vector<std::size_t> places_; // in `bytes_`
    std::size_t nextPlace_ = 0;
    std::uint64_t skipped_ = 0; // places before this are not wanted
    int triesInVain_ = 0;
};
