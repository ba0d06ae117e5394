// What a text window tells screen readers by UI Automation.
#pragma once

#include "platform/windows/text_pane/accessibility/text_provider.h"

#include <optional>
#include <string>

class TextAccessibility {
  public:
    explicit TextAccessibility(ReadablePane& pane) : pane_(pane) {} // which outlives this
    ~TextAccessibility() { Disconnect(); }
    TextAccessibility(const TextAccessibility&) = delete;
    TextAccessibility& operator=(const TextAccessibility&) = delete;

    // What is handed to screen readers; the same object as long as the window lives.
    const ComPtr<TextProvider>& Provider(HWND window);
    // The answer to WM_GETOBJECT; none where it asks for something else, or UI Automation lacks.
    std::optional<LRESULT> AnswerGetObject(HWND window, WPARAM wParam, LPARAM lParam);
    void OnTextChanged() { Raise(uia::textChanged); }
    void OnSelectionChanged() { Raise(uia::selectionChanged); }
    void OnObjectFocused();
    void Announce(const std::wstring& text);
    // When the window goes: what screen readers still hold answers nothing more.
    void Disconnect();

  private:
    bool HasListeners() const;
    void Raise(EVENTID event);

    ReadablePane& pane_;
    ComPtr<TextProvider> provider_; // made when it is asked for first: nobody listens before
};
