// What the benches of the core share: a folder of their own, and the headless program in it.
#pragma once

#include "common/utf.h"
#include "platform/none/none_ports.h"
#include "platform/posix/posix_clock.h"
#include "platform/posix/posix_files.h"

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>

// A new folder under the system's own for such things, gone at the end.
class TemporaryFolder {
  public:
    TemporaryFolder() {
        std::string name = (std::filesystem::temp_directory_path() / "core_bench.XXXXXX").string();
        if (!mkdtemp(name.data())) std::exit(EXIT_FAILURE);
        path = name;
    }
    ~TemporaryFolder() {
        std::error_code error;
        std::filesystem::remove_all(path, error);
    }
    TemporaryFolder(const TemporaryFolder&) = delete;
    TemporaryFolder& operator=(const TemporaryFolder&) = delete;

    std::filesystem::path path;
};

inline std::string ReadFile(const std::filesystem::path& path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

inline void WriteFile(const std::filesystem::path& path, const std::string& bytes) {
    std::ofstream(path, std::ios::binary) << bytes;
}

// The headless program with its data file and books on the disk.
inline Ports PortsIn(const std::filesystem::path& folder) {
    Ports ports = MakeNonePorts();
    ports.launch.programFolder = Utf8ToUtf16(folder.string());
    ports.files = std::make_unique<PosixFiles>();
    ports.clock = std::make_unique<PosixClock>();
    return ports;
}
