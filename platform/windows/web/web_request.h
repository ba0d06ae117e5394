// One request for a file on the web, which goes on while the program handles its messages.
#pragma once

#include "platform/windows/web/http.h"
#include "platform/windows/web/web_target.h"
#include "platform/windows/window/win_native_window.h"

#include <memory>
#include <string>

class WebRequest {
  public:
    WebRequest(const WinHttp&, const WebTarget&, int timeLimit); // milliseconds, for each step
    ~WebRequest(); // gives it up; what the system still does for it does no harm
    WebRequest(const WebRequest&) = delete;
    WebRequest& operator=(const WebRequest&) = delete;

    bool IsFinished() const { return finished_; }

    // When it is finished:
    bool IsWhole() const { return whole_; } // a whole file came, within the limit of size
    const std::string& Bytes() const { return bytes_; }
    const std::wstring& Location() const { return location_; } // "" unless it is a redirection

  private:
    struct Reports;

    static void CALLBACK OnReport(HINTERNET, DWORD_PTR context, DWORD status, void* details,
                                  DWORD size);
    bool Open(const WebTarget&, int timeLimit);
    bool Ask(bool secure);
    bool Watch();
    void TakeReports();
    bool Take(DWORD status, DWORD size);
    bool TakeHead();
    bool TakeBytes(std::size_t size);
    bool TakeEnd();
    bool Read(DWORD size);
    std::wstring Field(DWORD name) const; // "" when there is none

    const WinHttp& http_;
    WinNativeWindow window_;           // is told of reports, by messages that every loop passes on
    std::shared_ptr<Reports> reports_; // lives as long as the system has one to make
    WinHttpHandle session_, connection_, request_;
    bool finished_ = false, whole_ = false;
    std::wstring location_, announcedLength_;
    std::string bytes_;
};
