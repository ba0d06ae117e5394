// One asynchronous HTTP request; it proceeds while messages are dispatched.
#pragma once

#include "platform/windows/base/win_native_window.h"
#include "platform/windows/web/http.h"
#include "platform/windows/web/web_target.h"

#include <memory>
#include <string>

class WebRequest {
  public:
    WebRequest(const WinHttp&, const WebTarget&, int timeLimit); // milliseconds, for each step
    ~WebRequest();                                               // cancels it
    WebRequest(const WebRequest&) = delete;
    WebRequest& operator=(const WebRequest&) = delete;

    bool IsFinished() const { return finished_; }

    // Once finished:
    bool IsComplete() const { return complete_; } // the whole file, within the size limit
    const std::string& Bytes() const { return bytes_; }
    const std::wstring& Location() const { return location_; } // "" unless it is a redirection

  private:
    struct Reports;

    static void CALLBACK StatusCallback(HINTERNET, DWORD_PTR context, DWORD status, void* details,
                                        DWORD size);
    bool Open(const WebTarget&, int timeLimit);
    bool Send(bool secure);
    bool SetStatusCallback();
    void HandleReports();
    bool HandleStatus(DWORD status, DWORD size);
    bool HandleHeaders();
    bool HandleData(std::size_t size);
    bool HandleEnd();
    bool Read(DWORD size);
    std::wstring QueryHeader(DWORD name) const; // "" when there is none

    const WinHttp& http_;
    WinNativeWindow window_;           // gets a message for each report, in any message loop
    std::shared_ptr<Reports> reports_; // shared with WinHTTP's callbacks
    WinHttpHandle session_, connection_, request_;
    bool finished_ = false, complete_ = false;
    std::wstring location_, announcedLength_;
    std::string bytes_;
};
