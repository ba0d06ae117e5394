#include "platform/windows/web/web_request.h"

#include "platform/update_check.h"
#include "product.h"

#include <algorithm>
#include <array>
#include <mutex>
#include <utility>
#include <vector>

namespace {

constexpr UINT reportMessage = WM_APP;

// WINHTTP_ACCESS_TYPE_AUTOMATIC_PROXY and the TLS flags are newer than some SDKs.
constexpr DWORD automaticProxy = 4;
constexpr DWORD tls12 = 0x800, tls13 = 0x2000;

// Does not send the user's languages, and takes no compressed answer.
constexpr wchar_t requestHeaders[] = L"Accept-Language: *\r\nAccept-Encoding: identity\r\n"
                                     L"Cache-Control: no-cache\r\nPragma: no-cache\r\n";

bool IsRedirectionStatus(const std::wstring& status) {
    constexpr std::array statuses = {L"301", L"302", L"303", L"307", L"308"};
    return std::ranges::find(statuses, status) != statuses.end();
}

} // namespace

// Status callbacks of WinHTTP's threads, queued for ours.
struct WebRequest::Reports {
    struct Report {
        DWORD status, size; // bytes that can be read, or were
    };

    void Add(Report report) {
        const std::lock_guard guard(lock);
        waiting.push_back(report);
        if (window) PostMessageW(window, reportMessage, 0, 0);
    }
    std::vector<Report> PopAll() {
        const std::lock_guard guard(lock);
        return std::exchange(waiting, {});
    }
    void Detach() {
        const std::lock_guard guard(lock);
        window = nullptr;
    }

    HWND window;
    std::mutex lock;
    std::vector<Report> waiting;
    std::array<char, 8192> buffer; // of the pending WinHttpReadData
};

WebRequest::WebRequest(const WinHttp& http, const WebTarget& target, int timeLimit)
    : http_(http), window_({L"NorvasetFetch", 0, 0, HWND_MESSAGE},
                           [this](HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
                               if (message == reportMessage) HandleReports();
                               return DefWindowProcW(window, message, wParam, lParam);
                           }),
      reports_(std::make_shared<Reports>()), session_(nullptr, http.CloseHandle),
      connection_(nullptr, http.CloseHandle), request_(nullptr, http.CloseHandle) {
    reports_->window = window_.Handle();
    finished_ = !Open(target, timeLimit) || !Send(target.secure);
}

WebRequest::~WebRequest() {
    reports_->Detach();
}

// A session for each request, so that they share no state.
bool WebRequest::Open(const WebTarget& target, int timeLimit) {
    const DWORD access = target.isThisComputer ? WINHTTP_ACCESS_TYPE_NO_PROXY : automaticProxy;
    session_.reset(http_.Open(L"" PRODUCT_TITLE, access, WINHTTP_NO_PROXY_NAME,
                              WINHTTP_NO_PROXY_BYPASS, WINHTTP_FLAG_ASYNC));
    if (!session_) return false;
    http_.SetTimeouts(session_.get(), timeLimit, timeLimit, timeLimit, timeLimit);
    DWORD protocols = tls12 | tls13;
    if (!http_.SetOption(session_.get(), WINHTTP_OPTION_SECURE_PROTOCOLS, &protocols,
                         sizeof protocols)) { // no TLS 1.3 before Windows 11
        protocols = tls12;
        http_.SetOption(session_.get(), WINHTTP_OPTION_SECURE_PROTOCOLS, &protocols,
                        sizeof protocols);
    }
    connection_.reset(http_.Connect(session_.get(), target.host.c_str(), target.port, 0));
    if (!connection_) return false;
    request_.reset(http_.OpenRequest(connection_.get(), L"GET", target.path.c_str(), nullptr,
                                     WINHTTP_NO_REFERER, WINHTTP_DEFAULT_ACCEPT_TYPES,
                                     target.secure ? WINHTTP_FLAG_SECURE : 0));
    return request_ != nullptr;
}

bool WebRequest::Send(bool secure) {
    // Redirections are followed by our own rules.
    DWORD disabled =
        WINHTTP_DISABLE_COOKIES | WINHTTP_DISABLE_REDIRECTS | WINHTTP_DISABLE_AUTHENTICATION;
    DWORD logon = WINHTTP_AUTOLOGON_SECURITY_LEVEL_HIGH;
    if (!http_.SetOption(request_.get(), WINHTTP_OPTION_DISABLE_FEATURE, &disabled,
                         sizeof disabled) ||
        !http_.SetOption(request_.get(), WINHTTP_OPTION_AUTOLOGON_POLICY, &logon, sizeof logon))
        return false;
    if (secure) // never the user's certificate
        http_.SetOption(request_.get(), WINHTTP_OPTION_CLIENT_CERT_CONTEXT,
                        WINHTTP_NO_CLIENT_CERT_CONTEXT, 0);
    return SetStatusCallback() &&
           http_.SendRequest(request_.get(), requestHeaders, static_cast<DWORD>(-1),
                             WINHTTP_NO_REQUEST_DATA, 0, 0, 0);
}

// The callback owns a reference to the reports until HANDLE_CLOSING.
bool WebRequest::SetStatusCallback() {
    auto shared = std::make_unique<std::shared_ptr<Reports>>(reports_);
    auto context = reinterpret_cast<DWORD_PTR>(shared.get());
    if (!http_.SetOption(request_.get(), WINHTTP_OPTION_CONTEXT_VALUE, &context, sizeof context))
        return false;
    constexpr DWORD notifications =
        WINHTTP_CALLBACK_FLAG_ALL_COMPLETIONS | WINHTTP_CALLBACK_FLAG_HANDLES;
    if (http_.SetStatusCallback(request_.get(), StatusCallback, notifications, 0) ==
        WINHTTP_INVALID_STATUS_CALLBACK)
        return false;
    static_cast<void>(shared.release()); // deleted at HANDLE_CLOSING
    return true;
}

// On a thread of WinHTTP's, or inside one of our calls.
void CALLBACK WebRequest::StatusCallback(HINTERNET, DWORD_PTR context, DWORD status, void* details,
                                         DWORD size) {
    auto* reports = reinterpret_cast<std::shared_ptr<Reports>*>(context);
    switch (status) {
    case WINHTTP_CALLBACK_STATUS_DATA_AVAILABLE:
        (*reports)->Add({status, *static_cast<const DWORD*>(details)});
        break;
    case WINHTTP_CALLBACK_STATUS_SENDREQUEST_COMPLETE:
    case WINHTTP_CALLBACK_STATUS_HEADERS_AVAILABLE:
    case WINHTTP_CALLBACK_STATUS_READ_COMPLETE:
    case WINHTTP_CALLBACK_STATUS_REQUEST_ERROR: (*reports)->Add({status, size}); break;
    case WINHTTP_CALLBACK_STATUS_HANDLE_CLOSING: delete reports; break;
    }
}

void WebRequest::HandleReports() {
    for (const auto& [status, size] : reports_->PopAll())
        if (!finished_) finished_ = !HandleStatus(status, size);
}

// False at the end of the request.
bool WebRequest::HandleStatus(DWORD status, DWORD size) {
    switch (status) {
    case WINHTTP_CALLBACK_STATUS_SENDREQUEST_COMPLETE:
        return http_.ReceiveResponse(request_.get(), nullptr);
    case WINHTTP_CALLBACK_STATUS_HEADERS_AVAILABLE: return HandleHeaders();
    case WINHTTP_CALLBACK_STATUS_DATA_AVAILABLE: return size > 0 ? Read(size) : HandleEnd();
    case WINHTTP_CALLBACK_STATUS_READ_COMPLETE: return HandleData(size);
    default: return false;
    }
}

bool WebRequest::HandleHeaders() {
    const std::wstring status = QueryHeader(WINHTTP_QUERY_STATUS_CODE);
    if (IsRedirectionStatus(status)) location_ = QueryHeader(WINHTTP_QUERY_LOCATION);
    announcedLength_ = QueryHeader(WINHTTP_QUERY_CONTENT_LENGTH);
    return status == L"200" && http_.QueryDataAvailable(request_.get(), nullptr);
}

// Not more than is available: some systems would block for the rest.
bool WebRequest::Read(DWORD size) {
    const DWORD count = std::min(size, static_cast<DWORD>(reports_->buffer.size()));
    return http_.ReadData(request_.get(), reports_->buffer.data(), count, nullptr);
}

bool WebRequest::HandleData(std::size_t size) {
    if (size == 0) return HandleEnd();
    if (size > fetchLimit - bytes_.size()) return false;
    bytes_.append(reports_->buffer.data(), size);
    return http_.QueryDataAvailable(request_.get(), nullptr);
}

bool WebRequest::HandleEnd() {
    complete_ = announcedLength_.empty() || announcedLength_ == std::to_wstring(bytes_.size());
    return false;
}

std::wstring WebRequest::QueryHeader(DWORD name) const {
    std::wstring value(4096, L'\0'); // longer headers are ignored
    auto size = static_cast<DWORD>(value.size() * sizeof(wchar_t));
    if (!http_.QueryHeaders(request_.get(), name, WINHTTP_HEADER_NAME_BY_INDEX, value.data(), &size,
                            WINHTTP_NO_HEADER_INDEX))
        return {};
    value.resize(size / sizeof(wchar_t));
    return value;
}
