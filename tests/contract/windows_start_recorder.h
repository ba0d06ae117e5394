// A copy of the helper, of a name full of blanks, that records each start with its arguments.
#pragma once

#include "platform/windows/base/text.h"
#include "platform/windows/files/win_files.h"
#include "temporary_folder_windows.h"
#include "windows_helper.h"
#include "windows_message_pump.h"

#include <doctest/doctest.h>

#include <cstring>

class StartRecorder {
  public:
    StartRecorder() {
        REQUIRE(CopyFileW(HelperPath().c_str(), ToWide(Program()).c_str(), TRUE));
        SetEnvironmentVariableW(HelperDoes, HelperRecords);
        SetEnvironmentVariableW(HelperOutput, folder_.path.c_str());
    }
    ~StartRecorder() {
        SetEnvironmentVariableW(HelperDoes, nullptr);
        SetEnvironmentVariableW(HelperOutput, nullptr);
    }
    StartRecorder(const StartRecorder&) = delete;
    StartRecorder& operator=(const StartRecorder&) = delete;

    std::u16string Folder() const { return FromWide(folder_.path); }
    std::u16string Program() const {
        return Folder() + u"\\my \u0440\u0435\u0434\u0430\u043A\u0442\u043E\u0440.exe";
    }

    // The arguments of the next start; waits for it. Fails where more than one has come: something
    // was started before it that should not.
    std::vector<std::u16string> NextStart() const {
        std::vector<std::wstring> records;
        REQUIRE(Becomes([&] { return !(records = Records()).empty(); }));
        REQUIRE(records.size() == 1);
        const std::u16string record = Folder() + u'\\' + FromWide(records.front());
        std::string bytes;
        REQUIRE(WinFiles().Read(record, 1u << 20, bytes) == ReadStatus::Ok);
        REQUIRE(DeleteFileW(ToWide(record).c_str()));
        std::u16string text(bytes.size() / sizeof(char16_t), u'\0');
        std::memcpy(text.data(), bytes.data(), text.size() * sizeof(char16_t));
        std::vector<std::u16string> arguments; // each ends in NUL
        for (std::size_t start = 0, end; start < text.size(); start = end + 1) {
            end = text.find(u'\0', start);
            arguments.push_back(text.substr(start, end - start));
        }
        return arguments;
    }

  private:
    std::vector<std::wstring> Records() const {
        std::vector<std::wstring> names = NamesInFolder(folder_.path);
        std::erase_if(names, [](const std::wstring& name) { return !name.ends_with(L".started"); });
        return names;
    }

    TemporaryFolder folder_;
};
