// Answers of COM objects of a window that may be gone.
#pragma once

#include "platform/windows/text_pane/accessibility/uia_text_pattern.h"
#include "view/readable_pane.h"

#include <exception>

// What `answer` says of the pane, as long as there is one. Nothing throws out of COM.
template <typename Answer>
HRESULT AnswerOf(ReadablePane* pane, Answer answer) noexcept {
    if (!pane) return uia::elementNotAvailable;
    try {
        return answer(*pane);
    } catch (const std::exception&) {
        return E_OUTOFMEMORY; // nothing else is thrown here
    }
}

// The same for a call that gives something back, which is set to nothing first.
template <typename Value, typename Answer>
HRESULT GiveAnswer(ReadablePane* pane, Value* value, Answer answer) noexcept {
    if (!value) return E_INVALIDARG;
    *value = {};
    return AnswerOf(pane, answer);
}
