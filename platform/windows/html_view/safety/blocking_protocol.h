// A protocol handler that hands files of the book's folder to the system's handler and refuses all
// others.
#pragma once

#include "platform/windows/base/com_object.h"
#include "platform/windows/html_view/safety/book_folder.h"

#include <urlmon.h>

#include <string>

class BlockingProtocolFactory final : public ComObject<IClassFactory> {
  public:
    explicit BlockingProtocolFactory(BookFolder folder) : folder_(std::move(folder)) {}

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID, void**) noexcept override;
    HRESULT STDMETHODCALLTYPE CreateInstance(IUnknown* outer, REFIID, void**) noexcept override;
    HRESULT STDMETHODCALLTYPE LockServer(BOOL) noexcept override;

  private:
    BookFolder folder_;
};

// One load. The system may make it inside another object; only then it takes a load back.
class BlockingProtocol final : public IInternetProtocol {
  public:
    BlockingProtocol(IUnknown* outer, BookFolder folder);
    IUnknown* Inner() { return &inner_; } // the reference that its maker has
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

    // Counts for this object alone; all else about its identity is the outer object's.
    struct InnerUnknown final : IUnknown {
        explicit InnerUnknown(BlockingProtocol& whole) : whole_(whole) {}
        HRESULT STDMETHODCALLTYPE QueryInterface(REFIID, void**) noexcept override;
        ULONG STDMETHODCALLTYPE AddRef() noexcept override;
        ULONG STDMETHODCALLTYPE Release() noexcept override;
        BlockingProtocol& whole_;
    };

    // The engine loads on threads of its own, too.
    LONG count_ = 1;
    InnerUnknown inner_{*this};
    IUnknown* outer_; // not counted, by the rules of aggregation
    BookFolder folder_;
    ComPtr<IInternetProtocol> system_; // while it loads a file
};
