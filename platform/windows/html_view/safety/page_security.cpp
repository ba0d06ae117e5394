#include "platform/windows/html_view/safety/page_security.h"

#include <cstring>

namespace {

// For a passive page with fonts and frames in files beside it.
bool IsNeeded(DWORD action) {
    return action == URLACTION_HTML_FONT_DOWNLOAD || action == URLACTION_HTML_SUBFRAME_NAVIGATE ||
           action == URLACTION_FEATURE_MIME_SNIFFING;
}

} // namespace

HRESULT PageSecurity::QueryInterface(REFIID id, void** found) noexcept {
    return FindInterface<IInternetSecurityManager>(this, id, found);
}

HRESULT PageSecurity::ProcessUrlAction(LPCWSTR, DWORD action, BYTE* policy, DWORD policySize, BYTE*,
                                       DWORD, DWORD, DWORD) noexcept {
    const bool allowed = IsNeeded(action);
    const DWORD answer = allowed ? URLPOLICY_ALLOW : URLPOLICY_DISALLOW;
    if (policy && policySize >= sizeof answer) std::memcpy(policy, &answer, sizeof answer);
    return allowed ? S_OK : S_FALSE;
}

HRESULT PageSecurity::SetSecuritySite(IInternetSecurityMgrSite*) noexcept {
    return INET_E_DEFAULT_ACTION;
}

HRESULT PageSecurity::GetSecuritySite(IInternetSecurityMgrSite**) noexcept {
    return INET_E_DEFAULT_ACTION;
}

HRESULT PageSecurity::MapUrlToZone(LPCWSTR, DWORD*, DWORD) noexcept {
    return INET_E_DEFAULT_ACTION;
}

HRESULT PageSecurity::GetSecurityId(LPCWSTR, BYTE*, DWORD*, DWORD_PTR) noexcept {
    return INET_E_DEFAULT_ACTION;
}

HRESULT PageSecurity::QueryCustomPolicy(LPCWSTR, REFGUID, BYTE**, DWORD*, BYTE*, DWORD,
                                        DWORD) noexcept {
    return INET_E_DEFAULT_ACTION;
}

HRESULT PageSecurity::SetZoneMapping(DWORD, LPCWSTR, DWORD) noexcept {
    return INET_E_DEFAULT_ACTION;
}

HRESULT PageSecurity::GetZoneMappings(DWORD, IEnumString**, DWORD) noexcept {
    return INET_E_DEFAULT_ACTION;
}
