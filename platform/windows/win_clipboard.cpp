#include "platform/windows/win_clipboard.h"

#include "platform/windows/win32.h"

#include <cstring>

namespace {

// Another program may have the clipboard open for a moment: clipboard managers look at every
// change.
constexpr int Attempts = 10;
constexpr DWORD BetweenAttempts = 10; // milliseconds

bool OpenTheClipboard() {
    for (int attempt = 1; !OpenClipboard(nullptr); ++attempt) {
        if (attempt == Attempts) return false;
        Sleep(BetweenAttempts);
    }
    return true;
}

// The text with its NUL in memory of the kind that the clipboard takes; null when there is none.
HGLOBAL ClipboardMemory(const std::u16string& text) {
    const std::size_t bytes = (text.size() + 1) * sizeof(char16_t);
    const HGLOBAL memory = GlobalAlloc(GMEM_MOVEABLE | GMEM_ZEROINIT, bytes);
    void* const place = memory ? GlobalLock(memory) : nullptr;
    if (!place) {
        GlobalFree(memory);
        return nullptr;
    }
    std::memcpy(place, text.c_str(), bytes);
    GlobalUnlock(memory);
    return memory;
}

} // namespace

void WinClipboard::SetText(const std::u16string& text) {
    const HGLOBAL memory = ClipboardMemory(text);
    if (!memory) return; // what is there stays
    bool taken = false;
    if (OpenTheClipboard()) {
        taken = EmptyClipboard() && SetClipboardData(CF_UNICODETEXT, memory);
        CloseClipboard();
    }
    if (!taken) GlobalFree(memory); // else it is the system's
}
