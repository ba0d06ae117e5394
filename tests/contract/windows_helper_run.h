// Running the helper and waiting for what it says.
#pragma once

#include "platform/windows/win_files.h"
#include "platform/windows/win_text.h"
#include "temporary_folder_windows.h"
#include "windows_helper.h"

#include <doctest/doctest.h>

#include <cstring>

class HelperRun {
  public:
    explicit HelperRun(const wchar_t* does) {
        SetEnvironmentVariableW(HelperDoes, does);
        SetEnvironmentVariableW(HelperOutput, output_.c_str());
    }
    ~HelperRun() {
        SetEnvironmentVariableW(HelperDoes, nullptr);
        SetEnvironmentVariableW(HelperOutput, nullptr);
    }

    // Waits, with a deadline, and forgets what was said before.
    std::wstring Answer() {
        constexpr ULONGLONG patience = 20'000; // milliseconds
        const ULONGLONG start = GetTickCount64();
        std::string bytes;
        while (WinFiles().Read(FromWide(output_), 1u << 20, bytes) != ReadStatus::Ok) {
            REQUIRE(GetTickCount64() - start < patience);
            SwitchToThread();
        }
        DeleteFileW(output_.c_str());
        std::wstring text(bytes.size() / sizeof(wchar_t), L'\0');
        std::memcpy(text.data(), bytes.data(), bytes.size());
        return text;
    }

  private:
    TemporaryFolder folder_;
    const std::wstring output_ = folder_.path + L"\\said";
};
