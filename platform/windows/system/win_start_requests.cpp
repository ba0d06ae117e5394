#include "platform/windows/system/win_start_requests.h"

#include "platform/shared/call_handler.h"
#include "platform/windows/base/text.h"
#include "platform/windows/base/win_handle.h"

#include <algorithm>
#include <cstring>
#include <optional>
#include <vector>

namespace {

constexpr wchar_t className[] = L"NorvasetStartRequests";
constexpr UINT requestMessage = WM_APP;
constexpr UINT answerMessage = WM_APP + 1;    // to the sender: `taken`, or 0
constexpr ULONG_PTR requestKind = 0x4E727632; // of COPYDATASTRUCT: "Nrv2"
constexpr LRESULT noted = 1;                  // of WM_COPYDATA: an answer follows
constexpr WPARAM taken = 1;
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
        return Note(reinterpret_cast<HWND>(wParam), data) ? noted : 0;
    }
    if (message == requestMessage) HandleNext();
    return DefWindowProcW(window, message, wParam, lParam);
}

// Whoever sends waits, and what it asks for may take long. It is answered when its turn comes: the
// program may end before.
bool StartRequestListener::Note(HWND sender, const COPYDATASTRUCT& data) {
    Deadline deadline = 0;
    if (data.dwData != requestKind || data.cbData < sizeof deadline || !data.lpData) return false;
    const std::size_t length = (data.cbData - sizeof deadline) / sizeof(wchar_t);
    if (length > maxPath || !handler_ || !IsOfThisUser(sender)) return false;
    std::memcpy(&deadline, data.lpData, sizeof deadline);
    std::u16string book(length, u'\0');
    std::memcpy(book.data(), static_cast<const BYTE*>(data.lpData) + sizeof deadline,
                length * sizeof(wchar_t));
    pending_.push_back({sender, deadline, {std::move(book), {}}});
    PostMessageW(window_->Handle(), requestMessage, 0, 0);
    return true;
}

void StartRequestListener::HandleNext() {
    if (pending_.empty()) return;
    const Pending next = std::move(pending_.front());
    pending_.pop_front();
    const bool isLate = GetTickCount64() >= next.deadline; // its user has been told by now
    const Handler handler = isLate ? nullptr : handler_;   // which it may take away itself
    if (PostMessageW(next.sender, answerMessage, handler ? taken : 0, 0) && handler)
        CallHandler(handler, next.request);
}

namespace {

// The messages of its window alone are handled meanwhile.
HandOver WaitForAnswer(HWND sender, HWND listener, const std::optional<HandOver>& answer,
                       ULONGLONG end) {
    constexpr ULONGLONG look = 50; // milliseconds between looks at whether the listener is gone
    for (;;) {
        MSG message;
        while (PeekMessageW(&message, sender, 0, 0, PM_REMOVE))
            DispatchMessageW(&message);
        if (answer) return *answer;
        if (!IsWindow(listener)) return HandOver::NobodyThere;
        const ULONGLONG now = GetTickCount64();
        if (now >= end) return HandOver::NoAnswer;
        MsgWaitForMultipleObjects(0, nullptr, FALSE, static_cast<DWORD>(std::min(end - now, look)),
                                  QS_ALLINPUT);
    }
}

} // namespace

HandOver AskRunningInstance(const std::wstring& lockFile, const std::u16string& book,
                            int milliseconds) {
    const std::wstring title = TitleFor(lockFile);
    const HWND listener =
        title.empty() ? nullptr : FindWindowExW(HWND_MESSAGE, nullptr, className, title.c_str());
    if (!listener || !IsOfThisUser(listener)) return HandOver::NobodyThere;
    DWORD process = 0;
    GetWindowThreadProcessId(listener, &process);
    AllowSetForegroundWindow(process);

    const Deadline end = GetTickCount64() + static_cast<Deadline>(milliseconds);
    // Earlier, so that an answer given in time comes in time.
    const Deadline deadline = end - static_cast<Deadline>(milliseconds) / 8;
    std::vector<BYTE> bytes(sizeof deadline + book.size() * sizeof(wchar_t));
    std::memcpy(bytes.data(), &deadline, sizeof deadline);
    std::memcpy(bytes.data() + sizeof deadline, book.data(), book.size() * sizeof(wchar_t));
    COPYDATASTRUCT data = {requestKind, static_cast<DWORD>(bytes.size()), bytes.data()};
    std::optional<HandOver> answer;
    const WinNativeWindow sender(
        {L"NorvasetStart", 0, 0, HWND_MESSAGE},
        [&answer](HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
            if (message == answerMessage)
                answer = wParam == taken ? HandOver::Taken : HandOver::Refused;
            return DefWindowProcW(window, message, wParam, lParam);
        });
    // Of a listener with fewer rights, too.
    ChangeWindowMessageFilterEx(sender.Handle(), answerMessage, MSGFLT_ALLOW, nullptr);
    DWORD_PTR received = 0;
    if (!SendMessageTimeoutW(listener, WM_COPYDATA, reinterpret_cast<WPARAM>(sender.Handle()),
                             reinterpret_cast<LPARAM>(&data), SMTO_NORMAL,
                             static_cast<UINT>(milliseconds), &received))
        return IsWindow(listener) ? HandOver::NoAnswer : HandOver::NobodyThere;
    if (received != noted) return HandOver::Refused;
    return WaitForAnswer(sender.Handle(), listener, answer, end);
}
