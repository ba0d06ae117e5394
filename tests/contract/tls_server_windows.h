// A web server on this computer that speaks TLS, with a certificate that nobody but itself has
// signed: the host's openssl, which Wine can start. It answers "/f" with a file of status 200.
#pragma once

#include "loopback_server_windows.h"
#include "temporary_folder_windows.h"

#include <filesystem>
#include <fstream>

class TlsServer {
  public:
    TlsServer() {
        {
            LoopbackServer unused([](const LoopbackConnection&, const std::string&) {});
            port_ = unused.Port();
        }
        if (!Start(L"openssl req -x509 -newkey ec -pkeyopt ec_paramgen_curve:prime256v1 -nodes "
                   L"-days 2 -subj /CN=127.0.0.1 -addext subjectAltName=IP:127.0.0.1 "
                   L"-keyout key.pem -out certificate.pem"))
            return;
        const std::wstring certificate = folder_.path + L"\\certificate.pem";
        WIN32_FILE_ATTRIBUTE_DATA made = {};
        Try([&] {
            GetFileAttributesExW(certificate.c_str(), GetFileExInfoStandard, &made);
            return made.nFileSizeLow > 0;
        });
        std::ofstream(std::filesystem::path(folder_.path) / L"f", std::ios::binary)
            << AnswerBytes("200 OK", "file"); // with its head
        // It ends by itself, because Wine gives no handle to end it by: after some connections,
        // and when one of them hangs.
        Start(L"timeout 60 openssl s_server -quiet -HTTP -naccept 8 -key key.pem -cert "
              L"certificate.pem -accept "
              L"127.0.0.1:" +
              std::to_wstring(port_));
        running_ = Try([this] { return Connects(); });
    }
    ~TlsServer() {
        if (running_) Try([this] { return !Connects(); });
    }
    TlsServer(const TlsServer&) = delete;
    TlsServer& operator=(const TlsServer&) = delete;

    bool IsRunning() const { return running_; }
    std::u16string Address() const {
        const std::string port = std::to_string(port_);
        return u"https://127.0.0.1:" + std::u16string(port.begin(), port.end());
    }

  private:
    bool Start(std::wstring commandLine) const {
        const std::wstring program = commandLine.substr(0, commandLine.find(L' '));
        STARTUPINFOW start = {};
        start.cb = sizeof start;
        PROCESS_INFORMATION started = {};
        if (!CreateProcessW((L"Z:\\usr\\bin\\" + program).c_str(), commandLine.data(), nullptr,
                            nullptr, FALSE, 0, nullptr, folder_.path.c_str(), &start, &started))
            return false;
        if (started.hProcess) CloseHandle(started.hProcess);
        if (started.hThread) CloseHandle(started.hThread);
        return true;
    }
    bool Connects() const {
        const LimitedSocket socket(::socket(AF_INET, SOCK_STREAM, 0), {ending_, connectLimit});
        return socket.Connect(port_);
    }
    // Whether it comes true within five seconds.
    template <typename Condition>
    static bool Try(Condition condition) {
        const ULONGLONG end = GetTickCount64() + 5000;
        while (!condition()) {
            if (GetTickCount64() > end) return false;
            Sleep(10);
        }
        return true;
    }

    static constexpr int connectLimit = 1000; // milliseconds

    Winsock winsock_;
    std::atomic<bool> ending_ = false;
    TemporaryFolder folder_;
    int port_ = 0;
    bool running_ = false;
};
