// The URL actions that a page may perform: none that runs, installs or fetches anything.
#pragma once

#include "platform/windows/base/com_object.h"

#include <urlmon.h>

class PageSecurity final : public ComObject<IInternetSecurityManager> {
  public:
    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID, void**) noexcept override;
    HRESULT STDMETHODCALLTYPE ProcessUrlAction(LPCWSTR, DWORD action, BYTE* policy,
                                               DWORD policySize, BYTE*, DWORD, DWORD,
                                               DWORD) noexcept override;
    // Defaults of the system.
    HRESULT STDMETHODCALLTYPE SetSecuritySite(IInternetSecurityMgrSite*) noexcept override;
    HRESULT STDMETHODCALLTYPE GetSecuritySite(IInternetSecurityMgrSite**) noexcept override;
    HRESULT STDMETHODCALLTYPE MapUrlToZone(LPCWSTR, DWORD*, DWORD) noexcept override;
    HRESULT STDMETHODCALLTYPE GetSecurityId(LPCWSTR, BYTE*, DWORD*, DWORD_PTR) noexcept override;
    HRESULT STDMETHODCALLTYPE QueryCustomPolicy(LPCWSTR, REFGUID, BYTE**, DWORD*, BYTE*, DWORD,
                                                DWORD) noexcept override;
    HRESULT STDMETHODCALLTYPE SetZoneMapping(DWORD, LPCWSTR, DWORD) noexcept override;
    HRESULT STDMETHODCALLTYPE GetZoneMappings(DWORD, IEnumString**, DWORD) noexcept override;
};
