#include "platform/windows/html_view/safety/blocking_protocol.h"

#include "platform/windows/html_view/safety/urlmon.h"

#include <new>

namespace {

// The system's file protocol, not by CoCreateInstance: requests run on engine threads where COM may
// not be initialised.
ComPtr<IInternetProtocol> SystemFileProtocol() {
    constexpr CLSID fileProtocol = {
        0x79eac9e7, 0xbaf9, 0x11ce, {0x8c, 0x82, 0x00, 0xaa, 0x00, 0x4b, 0xa9, 0x0b}};
    const auto getClass = UrlmonFunction<LPFNGETCLASSOBJECT>("DllGetClassObject");
    ComPtr<IClassFactory> factory;
    ComPtr<IInternetProtocol> protocol;
    if (!getClass || FAILED(getClass(fileProtocol, IID_PPV_ARGS(&factory)))) return {};
    if (FAILED(factory->CreateInstance(nullptr, IID_PPV_ARGS(&protocol)))) return {};
    return protocol;
}

} // namespace

HRESULT BlockingProtocolFactory::QueryInterface(REFIID id, void** found) noexcept {
    return FindInterface<IClassFactory>(this, id, found);
}

HRESULT BlockingProtocolFactory::CreateInstance(IUnknown* outer, REFIID id, void** made) noexcept {
    if (!made) return E_POINTER;
    *made = nullptr;
    if (outer && id != __uuidof(IUnknown)) return CLASS_E_NOAGGREGATION;
    auto* protocol = new (std::nothrow) BlockingProtocol(outer, folder_);
    if (!protocol) return E_OUTOFMEMORY;
    const auto first = Adopt<IUnknown>(protocol->Inner());
    return first->QueryInterface(id, made);
}

HRESULT BlockingProtocolFactory::LockServer(BOOL) noexcept {
    return S_OK;
}

BlockingProtocol::BlockingProtocol(IUnknown* outer, BookFolder folder)
    : outer_(outer ? outer : &inner_), folder_(std::move(folder)) {}

HRESULT BlockingProtocol::InnerUnknown::QueryInterface(REFIID id, void** found) noexcept {
    if (!found) return E_POINTER;
    *found = nullptr;
    if (id == __uuidof(IUnknown)) *found = static_cast<IUnknown*>(this);
    if (id == __uuidof(IInternetProtocolRoot) || id == __uuidof(IInternetProtocol))
        *found = static_cast<IInternetProtocol*>(&whole_);
    if (!*found) return E_NOINTERFACE;
    static_cast<IUnknown*>(*found)->AddRef();
    return S_OK;
}

ULONG BlockingProtocol::InnerUnknown::AddRef() noexcept {
    return static_cast<ULONG>(InterlockedIncrement(&whole_.count_));
}

ULONG BlockingProtocol::InnerUnknown::Release() noexcept {
    const LONG left = InterlockedDecrement(&whole_.count_);
    if (left == 0) delete &whole_;
    return static_cast<ULONG>(left);
}

HRESULT BlockingProtocol::QueryInterface(REFIID id, void** found) noexcept {
    return outer_->QueryInterface(id, found);
}

ULONG BlockingProtocol::AddRef() noexcept {
    return outer_->AddRef();
}

ULONG BlockingProtocol::Release() noexcept {
    return outer_->Release();
}

HRESULT BlockingProtocol::Start(LPCWSTR url, IInternetProtocolSink* sink,
                                IInternetBindInfo* bindInfo, DWORD flags,
                                HANDLE_PTR reserved) noexcept {
    if (!url || !folder_.Allows(url)) {
        if (sink) sink->ReportResult(INET_E_RESOURCE_NOT_FOUND, 0, nullptr);
        return INET_E_RESOURCE_NOT_FOUND;
    }
    system_ = SystemFileProtocol();
    if (!system_) return INET_E_USE_DEFAULT_PROTOCOLHANDLER;
    return system_->Start(url, sink, bindInfo, flags, reserved);
}

HRESULT BlockingProtocol::Continue(PROTOCOLDATA* data) noexcept {
    return system_ ? system_->Continue(data) : S_OK;
}

HRESULT BlockingProtocol::Abort(HRESULT reason, DWORD options) noexcept {
    return system_ ? system_->Abort(reason, options) : S_OK;
}

HRESULT BlockingProtocol::Terminate(DWORD options) noexcept {
    return system_ ? system_->Terminate(options) : S_OK;
}

HRESULT BlockingProtocol::Suspend() noexcept {
    return system_ ? system_->Suspend() : E_NOTIMPL;
}

HRESULT BlockingProtocol::Resume() noexcept {
    return system_ ? system_->Resume() : E_NOTIMPL;
}

HRESULT BlockingProtocol::Read(void* buffer, ULONG size, ULONG* read) noexcept {
    if (system_) return system_->Read(buffer, size, read);
    if (read) *read = 0;
    return S_FALSE; // the end
}

HRESULT BlockingProtocol::Seek(LARGE_INTEGER offset, DWORD origin, ULARGE_INTEGER* place) noexcept {
    return system_ ? system_->Seek(offset, origin, place) : E_NOTIMPL;
}

HRESULT BlockingProtocol::LockRequest(DWORD options) noexcept {
    return system_ ? system_->LockRequest(options) : S_OK;
}

HRESULT BlockingProtocol::UnlockRequest() noexcept {
    return system_ ? system_->UnlockRequest() : S_OK;
}
