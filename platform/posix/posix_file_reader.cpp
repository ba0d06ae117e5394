#include "platform/posix/posix_file_reader.h"

#include <cerrno>

std::size_t PosixFileReader::ReadAt(std::uint64_t offset, char* to, std::size_t count) const {
    std::size_t done = 0;
    while (done < count) {
        const auto place = static_cast<off_t>(offset + done);
        const ssize_t got = pread(file_.Number(), to + done, count - done, place);
        if (got < 0 && errno == EINTR) continue;
        if (got <= 0) break;
        done += static_cast<std::size_t>(got);
    }
    return done;
}
