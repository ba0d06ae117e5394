#include "platform/windows/win_dropped_files.h"

#include "platform/windows/win_text.h"

std::vector<std::u16string> DroppedFiles(HDROP drop) {
    std::vector<std::u16string> paths;
    const UINT count = DragQueryFileW(drop, 0xFFFFFFFF, nullptr, 0);
    for (UINT i = 0; i < count; ++i) {
        std::wstring path(DragQueryFileW(drop, i, nullptr, 0), L'\0');
        DragQueryFileW(drop, i, path.data(), static_cast<UINT>(path.size()) + 1);
        // Wine makes a name of nothing from a drop of web addresses only.
        if (!path.empty()) paths.push_back(FromWide(path));
    }
    return paths;
}

std::vector<std::u16string> TakeDroppedFiles(HDROP drop) {
    std::vector<std::u16string> paths = DroppedFiles(drop);
    DragFinish(drop);
    return paths;
}
