#include "platform/windows/win_http.h"

#include <optional>

namespace {

template <typename Function>
bool Find(HMODULE library, const char* name, Function& function) {
    function = reinterpret_cast<Function>(reinterpret_cast<void*>(GetProcAddress(library, name)));
    return function != nullptr;
}

// It stays loaded: its threads may still be at work when a request is given up.
std::optional<WinHttp> Load() {
    const HMODULE library = LoadLibraryExW(L"winhttp.dll", nullptr, LOAD_LIBRARY_SEARCH_SYSTEM32);
    WinHttp http = {};
    const bool complete = library && Find(library, "WinHttpOpen", http.Open) &&
                          Find(library, "WinHttpConnect", http.Connect) &&
                          Find(library, "WinHttpOpenRequest", http.OpenRequest) &&
                          Find(library, "WinHttpSetOption", http.SetOption) &&
                          Find(library, "WinHttpSetTimeouts", http.SetTimeouts) &&
                          Find(library, "WinHttpSetStatusCallback", http.SetStatusCallback) &&
                          Find(library, "WinHttpSendRequest", http.SendRequest) &&
                          Find(library, "WinHttpReceiveResponse", http.ReceiveResponse) &&
                          Find(library, "WinHttpQueryHeaders", http.QueryHeaders) &&
                          Find(library, "WinHttpQueryDataAvailable", http.QueryDataAvailable) &&
                          Find(library, "WinHttpReadData", http.ReadData) &&
                          Find(library, "WinHttpCloseHandle", http.CloseHandle);
    return complete ? std::optional(http) : std::nullopt;
}

} // namespace

const WinHttp* LoadWinHttp() {
    static const std::optional<WinHttp> http = Load();
    return http ? &*http : nullptr;
}
