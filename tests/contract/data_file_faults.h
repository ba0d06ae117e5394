// What can happen to a data file while other programs and people use it, too; and the program on
// each of these faults, with the files of a real system.
#pragma once

#include "platform/files.h"

#include <filesystem>
#include <functional>
#include <memory>
#include <string>
#include <vector>

using EndOfFault = std::function<void()>; // the file can be used again

enum class Reported { Nothing, CannotRead, CannotWrite };

struct Fault {
    const char* name;
    // Brings the fault to a data file that is there.
    std::function<EndOfFault(const std::filesystem::path& dataFile)> begin;
    Reported atStart, later; // when it is there at the start; when it comes to a running program
};

// The faults of this system, those of the bytes left out.
std::vector<Fault> FaultsOfSystem();
std::unique_ptr<Files> FilesOfSystem();
std::u16string PathOfSystem(const std::filesystem::path&);

void CheckFaultThatComes(const Fault&, const std::filesystem::path& folder, bool endsWhileItRuns);
void CheckDataFileFaults(const std::filesystem::path& emptyFolder);
