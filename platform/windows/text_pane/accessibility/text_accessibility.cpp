#include "platform/windows/text_pane/accessibility/text_accessibility.h"

#include "platform/windows/text_pane/accessibility/uia_library.h"

const ComPtr<TextProvider>& TextAccessibility::Provider(HWND window) {
    if (!provider_) provider_ = Adopt(new TextProvider(window, pane_));
    return provider_;
}

std::optional<LRESULT> TextAccessibility::AnswerGetObject(HWND window, WPARAM wParam,
                                                          LPARAM lParam) {
    // Of the parameter only 32 bits count, and their sign may be lost on the way.
    if (static_cast<LONG>(lParam) != uia::rootObject) return std::nullopt;
    const UiaLibrary& library = UiaLibrary::Get();
    if (!library.ReturnProvider) return std::nullopt;
    return library.ReturnProvider(window, wParam, lParam, Provider(window).Get());
}

void TextAccessibility::Raise(EVENTID event) {
    if (!provider_) return;
    const UiaLibrary& library = UiaLibrary::Get();
    if (library.RaiseEvent && library.ClientsAreListening && library.ClientsAreListening())
        library.RaiseEvent(provider_.Get(), event);
}

void TextAccessibility::Disconnect() {
    if (!provider_) return;
    const ComPtr<TextProvider> provider = std::move(provider_);
    provider->LeavePane();
    const UiaLibrary& library = UiaLibrary::Get();
    if (library.Disconnect) library.Disconnect(provider.Get());
}
