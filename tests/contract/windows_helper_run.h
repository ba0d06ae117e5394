// Running the helper and waiting for what it says.
#pragma once

#include "platform/windows/base/text.h"
#include "platform/windows/base/win_handle.h"
#include "platform/windows/files/win_files.h"
#include "platform/windows/portable/quoted_argument.h"
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
        constexpr ULONGLONG timeout = 20'000; // milliseconds
        const ULONGLONG start = GetTickCount64();
        std::string bytes;
        while (WinFiles().Read(FromWide(output_), 1u << 20, bytes) != ReadStatus::Ok) {
            REQUIRE(GetTickCount64() - start < timeout);
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

// A helper that runs until it is killed, at the latest with this object.
class HelperProcess {
  public:
    HelperProcess(const wchar_t* does, const std::wstring& argument) {
        HelperRun helper(does);
        std::wstring line = L"helper " + QuotedArgument(argument);
        STARTUPINFOW start = {};
        start.cb = sizeof start;
        PROCESS_INFORMATION started = {};
        REQUIRE(CreateProcessW(HelperPath().c_str(), line.data(), nullptr, nullptr, FALSE, 0,
                               nullptr, nullptr, &start, &started));
        CloseHandle(started.hThread);
        process_ = WinHandle(started.hProcess);
        answer = helper.Answer();
    }
    ~HelperProcess() { Kill(); }

    void Kill() {
        if (!process_.IsOpen()) return;
        TerminateProcess(process_.Get(), 1);
        WaitForSingleObject(process_.Get(), INFINITE);
        process_.Close();
    }

    std::wstring answer; // the first

  private:
    WinHandle process_;
};
