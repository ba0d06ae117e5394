// An asynchronous pluggable protocol that passes files of the book's folder to the system's handler
// and blocks everything else.
#pragma once

#include "platform/windows/base/com_object.h"
#include "platform/windows/html_view/safety/book_folder.h"

#include <urlmon.h>

class BlockingProtocolFactory final : public ComObject<IClassFactory> {
  public:
    explicit BlockingProtocolFactory(BookFolder folder) : folder_(std::move(folder)) {}

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID, void**) noexcept override;
    HRESULT STDMETHODCALLTYPE CreateInstance(IUnknown* outer, REFIID, void**) noexcept override;
    HRESULT STDMETHODCALLTYPE LockServer(BOOL) noexcept override;

  private:
    BookFolder folder_;
};

// One request. Supports aggregation, without which urlmon does not accept
// INET_E_USE_DEFAULT_PROTOCOLHANDLER.
class BlockingProtocol final : public IInternetProtocol {
  public:
    BlockingProtocol(IUnknown* outer, BookFolder folder);
    IUnknown* Inner() { return &inner_; } // the creator's reference
    BlockingProtocol(const BlockingProtocol&) = delete;
    BlockingProtocol& operator=(const BlockingProtocol&) = delete;

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID, void**) noexcept override;
    ULONG STDMETHODCALLTYPE AddRef() noexcept override;
    ULONG STDMETHODCALLTYPE Release() noexcept override;

    HRESULT STDMETHODCALLTYPE Start(LPCWSTR url, IInternetProtocolSink*, IInternetBindInfo*, DWORD,
                                    HANDLE_PTR) noexcept override;
    HRESULT STDMETHODCALLTYPE Continue(PROTOCOLDATA*) noexcept override;
    HRESULT STDMETHODCALLTYPE Abort(HRESULT, DWORD) noexcept override;
    HRESULT STDMETHODCALLTYPE Terminate(DWORD) noexcept override;
    HRESULT STDMETHODCALLTYPE Suspend() noexcept override;
    HRESULT STDMETHODCALLTYPE Resume() noexcept override;
    HRESULT STDMETHODCALLTYPE Read(void*, ULONG, ULONG* read) noexcept override;
    HRESULT STDMETHODCALLTYPE Seek(LARGE_INTEGER, DWORD, ULARGE_INTEGER*) noexcept override;
    HRESULT STDMETHODCALLTYPE LockRequest(DWORD) noexcept override;
    HRESULT STDMETHODCALLTYPE UnlockRequest() noexcept override;

  private:
    ~BlockingProtocol() = default;

    // The non-delegating IUnknown.
    struct InnerUnknown final : IUnknown {
        explicit InnerUnknown(BlockingProtocol& whole) : whole_(whole) {}
        HRESULT STDMETHODCALLTYPE QueryInterface(REFIID, void**) noexcept override;
        ULONG STDMETHODCALLTYPE AddRef() noexcept override;
        ULONG STDMETHODCALLTYPE Release() noexcept override;
        BlockingProtocol& whole_;
    };

    // Interlocked: the engine loads on threads of its own, too.
    LONG count_ = 1;
    InnerUnknown inner_{*this};
    IUnknown* outer_; // not AddRef'ed, by the rules of aggregation
    BookFolder folder_;
    ComPtr<IInternetProtocol> system_; // while it loads a file
};
