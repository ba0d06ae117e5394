// Another program, started by the tests. It is told what to do by its environment, because its
// command line is what is tested.
#include "windows_helper.h"

#include "platform/windows/base/text.h"
#include "platform/windows/base/win_handle.h"
#include "platform/windows/files/win_files.h"
#include "platform/windows/system/win_shell.h"

#include <shellapi.h>

#include <iterator>
#include <string_view>

namespace {

std::wstring Variable(const wchar_t* name) {
    wchar_t value[32'767] = {};
    GetEnvironmentVariableW(name, value, static_cast<DWORD>(std::size(value)));
    return value;
}

void Write(const std::wstring& path, const std::wstring& text) {
    const std::string_view bytes(reinterpret_cast<const char*>(text.data()),
                                 text.size() * sizeof(wchar_t));
    WinFiles().Replace(FromWide(path), bytes, WriteTime::Now);
}

void Tell(const std::wstring& text) {
    Write(Variable(HelperOutput), text);
}

[[noreturn]] void ReplaceForever(const std::u16string& path) {
    WinFiles files;
    for (int round = 0;; ++round) {
        files.Replace(path, std::string(HelperBytes, round % 2 == 0 ? 'a' : 'b'), WriteTime::Keep);
        if (round == 0) Tell(L"begun");
    }
}

} // namespace

int main() {
    int count = 0;
    wchar_t** arguments = CommandLineToArgvW(GetCommandLineW(), &count);
    const std::wstring argument = count > 1 ? arguments[1] : L"";
    if (Variable(HelperDoes) == HelperRecords) {
        std::wstring all;
        for (int i = 1; i < count; ++i)
            (all += arguments[i]) += L'\0';
        Write(Variable(HelperOutput) + L'\\' + std::to_wstring(GetCurrentProcessId()) + L".started",
              all);
        return 0;
    }
    if (Variable(HelperDoes) == HelperNames) {
        const std::wstring own = arguments[0];
        Tell(own.substr(own.find_last_of(L"\\/") + 1) + L":" + argument);
        return 0;
    }
    if (Variable(HelperDoes) == HelperReplaces) ReplaceForever(FromWide(argument));
    if (Variable(HelperDoes) == HelperKeeps) {
        const WinHandle file(CreateFileW(argument.c_str(), GENERIC_READ, 0, nullptr, OPEN_EXISTING,
                                         FILE_ATTRIBUTE_NORMAL, nullptr));
        Tell(file.IsOpen() ? L"yes" : L"no");
        Sleep(INFINITE);
    }
    WinShell shell;
    Tell(shell.ClaimDataFile(FromWide(argument)).IsGranted() ? L"yes" : L"no");
    Sleep(INFINITE);
}
