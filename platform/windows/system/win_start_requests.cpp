#include "platform/windows/system/win_start_requests.h"

#include "platform/shared/call_handler.h"
#include "platform/windows/base/text.h"
#include "platform/windows/base/win_handle.h"

#include <cstring>
#include <vector>

namespace {

constexpr wchar_t className[] = L"NorvasetStartRequests";
constexpr UINT requestMessage = WM_APP;
constexpr ULONG_PTR requestKind = 0x4E727631; // of COPYDATASTRUCT: "Nrv1"
constexpr LRESULT taken = 1;
constexpr std::size_t maxPath = 32768; // the longest path of the system

// What is sent: when it is given up (GetTickCount64, which all processes share), then the path.
using Deadline = ULONGLONG;

std::wstring TitleFor(const std::wstring& lockFile) {
    const WinHandle file(CreateFileW(lockFile.c_str(), 0,
                                     FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE,
                                     nullptr, OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr));
    BY_HANDLE_FILE_INFORMATION information = {};
    if (!file.IsOpen() || !GetFileInformationByHandle(file.Get(), &information)) return {};
    return std::to_wstring(information.dwVolumeSerialNumber) + L'-' +
           std::to_wstring(information.nFileIndexHigh) + L'-' +
           std::to_wstring(information.nFileIndexLow);
}

// TOKEN_USER of a process; empty where it may not be asked.
std::vector<BYTE> UserOf(HANDLE process) {
    HANDLE opened = nullptr;
    if (!OpenProcessToken(process, TOKEN_QUERY, &opened)) return {};
    const WinHandle token(opened);
    DWORD size = 0;
    GetTokenInformation(token.Get(), TokenUser, nullptr, 0, &size);
    std::vector<BYTE> user(size);
    if (size == 0 || !GetTokenInformation(token.Get(), TokenUser, user.data(), size, &size))
        return {};
    return user;
}

bool IsOfThisUser(HWND window) {
    DWORD id = 0;
    GetWindowThreadProcessId(window, &id);
    const WinHandle process(OpenProcess(PROCESS_QUERY_LIMITED_INFORMATION, FALSE, id));
    if (!process.IsOpen()) return false;
    const std::vector<BYTE> theirs = UserOf(process.Get()), ours = UserOf(GetCurrentProcess());
    const auto sid = [](const std::vector<BYTE>& user) {
        return reinterpret_cast<const TOKEN_USER*>(user.data())->User.Sid;
    };
    return !theirs.empty() && !ours.empty() && EqualSid(sid(theirs), sid(ours));
}

} // namespace

StartRequestListener::StartRequestListener(const Handler& handler) : handler_(handler) {}

void StartRequestListener::Listen(const std::wstring& lockFile) {
    const std::wstring title = TitleFor(lockFile);
    if (window_ || title.empty()) return;
    window_ = std::make_unique<WinNativeWindow>(
        WinNativeWindow::Params{className, 0, 0, HWND_MESSAGE},
        [this](HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
            return HandleMessage(window, message, wParam, lParam);
        });
    SetWindowTextW(window_->Handle(), title.c_str());
}

LRESULT StartRequestListener::HandleMessage(HWND window, UINT message, WPARAM wParam,
                                            LPARAM lParam) {
    if (message == WM_COPYDATA) {
        const auto& data = *reinterpret_cast<const COPYDATASTRUCT*>(lParam);
        return Take(reinterpret_cast<HWND>(wParam), data) ? taken : 0;
    }
    if (message == requestMessage) HandleNext();
    return DefWindowProcW(window, message, wParam, lParam);
}

// Only noted: the sender waits for the answer, and what it asks for may take long.
bool StartRequestListener::Take(HWND sender, const COPYDATASTRUCT& data) {
    Deadline deadline = 0;
    if (data.dwData != requestKind || data.cbData < sizeof deadline || !data.lpData) return false;
    const std::size_t length = (data.cbData - sizeof deadline) / sizeof(wchar_t);
    if (length > maxPath || !handler_ || !IsOfThisUser(sender)) return false;
    std::memcpy(&deadline, data.lpData, sizeof deadline);
    if (GetTickCount64() >= deadline) return false; // its user has been told by now
    StartRequest request;
    request.book.resize(length);
    std::memcpy(request.book.data(), static_cast<const BYTE*>(data.lpData) + sizeof deadline,
                length * sizeof(wchar_t));
    pending_.push_back(std::move(request));
    PostMessageW(window_->Handle(), requestMessage, 0, 0);
    return true;
}

void StartRequestListener::HandleNext() {
    if (pending_.empty()) return;
    const StartRequest request = std::move(pending_.front());
    pending_.pop_front();
    const Handler handler = handler_; // which it may take away itself
    CallHandler(handler, request);
}

HandOver AskRunningInstance(const std::wstring& lockFile, const std::u16string& book,
                            int milliseconds) {
    const std::wstring title = TitleFor(lockFile);
    const HWND listener =
        title.empty() ? nullptr : FindWindowExW(HWND_MESSAGE, nullptr, className, title.c_str());
    if (!listener || !IsOfThisUser(listener)) return HandOver::NobodyThere;
    DWORD process = 0;
    GetWindowThreadProcessId(listener, &process);
    AllowSetForegroundWindow(process);

    const Deadline deadline = GetTickCount64() + static_cast<Deadline>(milliseconds);
    std::vector<BYTE> bytes(sizeof deadline + book.size() * sizeof(wchar_t));
    std::memcpy(bytes.data(), &deadline, sizeof deadline);
    std::memcpy(bytes.data() + sizeof deadline, book.data(), book.size() * sizeof(wchar_t));
    COPYDATASTRUCT data = {requestKind, static_cast<DWORD>(bytes.size()), bytes.data()};
    const WinNativeWindow sender({L"NorvasetStart", 0, 0, HWND_MESSAGE});
    DWORD_PTR answer = 0;
    if (!SendMessageTimeoutW(listener, WM_COPYDATA, reinterpret_cast<WPARAM>(sender.Handle()),
                             reinterpret_cast<LPARAM>(&data), SMTO_NORMAL,
                             static_cast<UINT>(milliseconds), &answer))
        return IsWindow(listener) ? HandOver::NoAnswer : HandOver::NobodyThere;
    return answer == taken ? HandOver::Taken : HandOver::NobodyThere;
}
