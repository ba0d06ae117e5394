#include "platform/windows/system/win_clipboard.h"

#include "platform/windows/base/win32.h"

#include <cstddef>

namespace {

// Clipboard managers open the clipboard for a moment at every change, remote sessions until the
// other side has answered.
constexpr int attempts = 50;
constexpr DWORD betweenAttempts = 20; // milliseconds

bool OpenTheClipboard() {
    for (int attempt = 1; !OpenClipboard(nullptr); ++attempt) {
        if (attempt == attempts) return false;
        Sleep(betweenAttempts);
    }
    return true;
}

// CF_UNICODETEXT has CR LF line ends.
bool NeedsReturn(const std::u16string& text, std::size_t place) {
    return text[place] == u'\n' && (place == 0 || text[place - 1] != u'\r');
}

std::size_t ReturnsNeeded(const std::u16string& text) {
    std::size_t needed = 0;
    for (std::size_t i = 0; i < text.size(); ++i)
        needed += NeedsReturn(text, i);
    return needed;
}

// The text with its NUL as movable global memory; null when out of memory.
HGLOBAL ClipboardMemory(const std::u16string& text) {
    const std::size_t units = text.size() + ReturnsNeeded(text) + 1;
    const HGLOBAL memory = GlobalAlloc(GMEM_MOVEABLE | GMEM_ZEROINIT, units * sizeof(char16_t));
    auto* place = memory ? static_cast<char16_t*>(GlobalLock(memory)) : nullptr;
    if (!place) {
        GlobalFree(memory);
        return nullptr;
    }
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (NeedsReturn(text, i)) *place++ = u'\r';
        *place++ = text[i];
    }
    GlobalUnlock(memory);
    return memory;
}

} // namespace

void WinClipboard::SetText(const std::u16string& text) {
    const HGLOBAL memory = ClipboardMemory(text);
    if (!memory) return; // the clipboard is unchanged
    bool taken = false;
    if (OpenTheClipboard()) {
        taken = EmptyClipboard() && SetClipboardData(CF_UNICODETEXT, memory);
        CloseClipboard();
    }
    if (!taken) GlobalFree(memory); // else the system owns it
}
