#include "platform/windows/html_view/safety/remote_blocker.h"

#include "platform/windows/html_view/safety/blocking_protocol.h"
#include "platform/windows/html_view/safety/urlmon.h"

namespace {

// RegisterNameSpace wants a class id; nothing else uses it.
constexpr GUID handlerClass = {
    0x5e9a0c1d, 0x8a4b, 0x4f0e, {0x9d, 0x37, 0x61, 0x0b, 0xc2, 0x55, 0xe8, 0x14}};

// Every scheme that can lead to another host: also those of archives, which accept UNC paths.
constexpr const wchar_t* schemes[] = {L"file", L"http", L"https",  L"ftp",
                                      L"mk",   L"its",  L"ms-its", L"mhtml"};

} // namespace

RemoteBlocker::RemoteBlocker(BookFolder folder)
    : handlers_(Adopt<IClassFactory>(new BlockingProtocolFactory(std::move(folder)))) {
    const auto getSession = UrlmonFunction<decltype(&CoInternetGetSession)>("CoInternetGetSession");
    if (!getSession || FAILED(getSession(0, &session_, 0))) return;
    for (const wchar_t* scheme : schemes)
        if (SUCCEEDED(
                session_->RegisterNameSpace(handlers_.Get(), handlerClass, scheme, 0, nullptr, 0)))
            schemes_.push_back(scheme);
}

RemoteBlocker::~RemoteBlocker() {
    for (const wchar_t* scheme : schemes_)
        session_->UnregisterNameSpace(handlers_.Get(), scheme);
}
