#include "platform/windows/win_file_reader.h"

#include <algorithm>

// Not mapped into memory: bytes of a share that has gone would then end the program.
std::size_t WinFileReader::ReadAt(std::uint64_t offset, char* to, std::size_t count) const {
    constexpr std::size_t maxPiece = 1u << 24;
    std::size_t done = 0;
    while (done < count) {
        const std::uint64_t from = offset + done;
        OVERLAPPED place = {};
        place.Offset = static_cast<DWORD>(from);
        place.OffsetHigh = static_cast<DWORD>(from >> 32);
        const auto piece = static_cast<DWORD>(std::min(count - done, maxPiece));
        DWORD got = 0;
        if (!ReadFile(file_.Get(), to + done, piece, &got, &place) || got == 0) break;
        done += got;
    }
    return done;
}
