#include "platform/windows/text_pane/accessibility/text_accessibility.h"

#include "platform/windows/base/com_values.h"
#include "platform/windows/text_pane/accessibility/object_provider.h"
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

bool TextAccessibility::HasListeners() const {
    if (!provider_) return false;
    const UiaLibrary& library = UiaLibrary::Get();
    return library.ClientsAreListening && library.ClientsAreListening();
}

void TextAccessibility::Raise(EVENTID event) {
    const auto raise = HasListeners() ? UiaLibrary::Get().RaiseEvent : nullptr;
    if (raise) raise(provider_.Get(), event);
}

void TextAccessibility::OnObjectFocused() {
    const auto raise = HasListeners() ? UiaLibrary::Get().RaiseEvent : nullptr;
    const std::size_t focused = raise ? pane_.FocusedObject() : noReadingObject;
    if (focused == noReadingObject) return;
    const auto object = Adopt(new ObjectProvider(*provider_.Get(), pane_, focused));
    raise(object.Get(), uia::focusChanged);
}

void TextAccessibility::Announce(const std::wstring& text) {
    const auto raise = HasListeners() ? UiaLibrary::Get().RaiseNotification : nullptr;
    if (!raise) return;
    const Bstr said(text), activity(L"view"); // of one activity the last is said
    raise(provider_.Get(), uia::actionCompleted, uia::mostRecent, said.Get(), activity.Get());
}

void TextAccessibility::Disconnect() {
    if (!provider_) return;
    const ComPtr<TextProvider> provider = std::move(provider_);
    provider->LeavePane();
    const UiaLibrary& library = UiaLibrary::Get();
    if (library.Disconnect) library.Disconnect(provider.Get());
}
