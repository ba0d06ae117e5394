// The system's UI Automation, loaded when a screen reader asks for the first time.
#pragma once

#include "platform/windows/text_pane/accessibility/uia_text_pattern.h"

// Null where the system has no such function.
struct UiaLibrary {
    LRESULT(WINAPI* ReturnProvider)(HWND, WPARAM, LPARAM, IRawElementProviderSimple*) = nullptr;
    HRESULT(WINAPI* HostProvider)(HWND, IRawElementProviderSimple**) = nullptr;
    HRESULT(WINAPI* Disconnect)(IRawElementProviderSimple*) = nullptr; // since Windows 8
    BOOL(WINAPI* ClientsAreListening)() = nullptr;
    HRESULT(WINAPI* RaiseEvent)(IRawElementProviderSimple*, EVENTID) = nullptr;
    HRESULT(WINAPI* RaiseNotification)
    (IRawElementProviderSimple*, int kind, int processing, BSTR text,
     BSTR activity) = nullptr; // since Windows 10, 1709
    HRESULT(WINAPI* MixedValue)(IUnknown**) = nullptr;
    HRESULT(WINAPI* NotSupportedValue)(IUnknown**) = nullptr;

    static const UiaLibrary& Get();
};
