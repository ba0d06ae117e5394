#include "platform/windows/web/http.h"

#include "platform/windows/base/system_library.h"

#include <optional>

namespace {

// It stays loaded: its threads may outlive a cancelled request.
std::optional<WinHttp> Load() {
    const HMODULE library = LoadSystemLibrary(L"winhttp.dll");
    WinHttp http = {};
    const bool complete =
        FindFunction(library, "WinHttpOpen", http.Open) &&
        FindFunction(library, "WinHttpConnect", http.Connect) &&
        FindFunction(library, "WinHttpOpenRequest", http.OpenRequest) &&
        FindFunction(library, "WinHttpSetOption", http.SetOption) &&
        FindFunction(library, "WinHttpSetTimeouts", http.SetTimeouts) &&
        FindFunction(library, "WinHttpSetStatusCallback", http.SetStatusCallback) &&
        FindFunction(library, "WinHttpSendRequest", http.SendRequest) &&
        FindFunction(library, "WinHttpReceiveResponse", http.ReceiveResponse) &&
        FindFunction(library, "WinHttpQueryHeaders", http.QueryHeaders) &&
        FindFunction(library, "WinHttpQueryDataAvailable", http.QueryDataAvailable) &&
        FindFunction(library, "WinHttpReadData", http.ReadData) &&
        FindFunction(library, "WinHttpCloseHandle", http.CloseHandle);
    return complete ? std::optional(http) : std::nullopt;
}

} // namespace

const WinHttp* LoadWinHttp() {
    static const std::optional<WinHttp> http = Load();
    return http ? &*http : nullptr;
}
