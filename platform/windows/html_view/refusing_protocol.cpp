#include "platform/windows/html_view/refusing_protocol.h"

#include "platform/windows/html_view/addresses.h"

#include <new>

HRESULT RefusingProtocols::QueryInterface(REFIID id, void** found) noexcept {
    return AnswerQuery<IClassFactory>(this, id, found);
}

HRESULT RefusingProtocols::CreateInstance(IUnknown* outer, REFIID id, void** made) noexcept {
    if (!made) return E_POINTER;
    *made = nullptr;
    if (outer && id != __uuidof(IUnknown)) return CLASS_E_NOAGGREGATION;
    auto* protocol = new (std::nothrow) RefusingProtocol(outer, bookHost_);
    if (!protocol) return E_OUTOFMEMORY;
    const auto first = ComPtr<IUnknown>::Adopt(protocol->Inner());
    return first->QueryInterface(id, made);
}

HRESULT RefusingProtocols::LockServer(BOOL) noexcept {
    return S_OK;
}

RefusingProtocol::RefusingProtocol(IUnknown* outer, std::wstring bookHost)
    : outer_(outer ? outer : &inner_), bookHost_(std::move(bookHost)) {}

HRESULT RefusingProtocol::InnerUnknown::QueryInterface(REFIID id, void** found) noexcept {
    if (!found) return E_POINTER;
    *found = nullptr;
    if (id == __uuidof(IUnknown)) *found = static_cast<IUnknown*>(this);
    if (id == __uuidof(IInternetProtocolRoot) || id == __uuidof(IInternetProtocol))
        *found = static_cast<IInternetProtocol*>(&whole_);
    if (!*found) return E_NOINTERFACE;
    static_cast<IUnknown*>(*found)->AddRef();
    return S_OK;
}

ULONG RefusingProtocol::InnerUnknown::AddRef() noexcept {
    return static_cast<ULONG>(InterlockedIncrement(&whole_.count_));
}

ULONG RefusingProtocol::InnerUnknown::Release() noexcept {
    const LONG left = InterlockedDecrement(&whole_.count_);
    if (left == 0) delete &whole_;
    return static_cast<ULONG>(left);
}

HRESULT RefusingProtocol::QueryInterface(REFIID id, void** found) noexcept {
    return outer_->QueryInterface(id, found);
}

ULONG RefusingProtocol::AddRef() noexcept {
    return outer_->AddRef();
}

ULONG RefusingProtocol::Release() noexcept {
    return outer_->Release();
}

HRESULT RefusingProtocol::Start(LPCWSTR url, IInternetProtocolSink* sink, IInternetBindInfo*, DWORD,
                                HANDLE_PTR) noexcept {
    if (url && IsWithinReach(url, bookHost_)) return INET_E_USE_DEFAULT_PROTOCOLHANDLER;
    if (sink) sink->ReportResult(INET_E_RESOURCE_NOT_FOUND, 0, nullptr);
    return INET_E_RESOURCE_NOT_FOUND;
}

HRESULT RefusingProtocol::Continue(PROTOCOLDATA*) noexcept {
    return S_OK;
}

HRESULT RefusingProtocol::Abort(HRESULT, DWORD) noexcept {
    return S_OK;
}

HRESULT RefusingProtocol::Terminate(DWORD) noexcept {
    return S_OK;
}

HRESULT RefusingProtocol::Suspend() noexcept {
    return E_NOTIMPL;
}

HRESULT RefusingProtocol::Resume() noexcept {
    return E_NOTIMPL;
}

HRESULT RefusingProtocol::Read(void*, ULONG, ULONG* read) noexcept {
    if (read) *read = 0;
    return S_FALSE; // the end
}

HRESULT RefusingProtocol::Seek(LARGE_INTEGER, DWORD, ULARGE_INTEGER*) noexcept {
    return E_NOTIMPL;
}

HRESULT RefusingProtocol::LockRequest(DWORD) noexcept {
    return S_OK;
}

HRESULT RefusingProtocol::UnlockRequest() noexcept {
    return S_OK;
}
