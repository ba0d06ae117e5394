// WinHTTP, loaded on first use: the start of the program does not wait for it.
#pragma once

#include "platform/windows/base/win32.h"

#include <winhttp.h>

#include <memory>

struct WinHttp {
    decltype(&::WinHttpOpen) Open;
    decltype(&::WinHttpConnect) Connect;
    decltype(&::WinHttpOpenRequest) OpenRequest;
    decltype(&::WinHttpSetOption) SetOption;
    decltype(&::WinHttpSetTimeouts) SetTimeouts;
    decltype(&::WinHttpSetStatusCallback) SetStatusCallback;
    decltype(&::WinHttpSendRequest) SendRequest;
    decltype(&::WinHttpReceiveResponse) ReceiveResponse;
    decltype(&::WinHttpQueryHeaders) QueryHeaders;
    decltype(&::WinHttpQueryDataAvailable) QueryDataAvailable;
    decltype(&::WinHttpReadData) ReadData;
    decltype(&::WinHttpCloseHandle) CloseHandle;
};

const WinHttp* LoadWinHttp(); // null where the system has none

using WinHttpHandle = std::unique_ptr<void, decltype(&::WinHttpCloseHandle)>;
