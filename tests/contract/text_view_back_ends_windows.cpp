#include "platform/none/none_text_view.h"
#include "platform/windows/text_view/win_text_view.h"
#include "tests/contract/text_view_contract.h"
#include "tests/contract/windows_text_view_bench.h"

#include <richedit.h>

namespace {
int XInWinView(TextView& view, TextPos position) {
    POINTL point = {};
    SendMessageW(static_cast<WinTextView&>(view).Handle(), EM_POSFROMCHAR,
                 reinterpret_cast<WPARAM>(&point), position);
    return static_cast<int>(point.x);
}
} // namespace

std::vector<TextViewBackEnd> TextViewBackEnds() {
    return {
        {"none", [] { return std::make_unique<NoneTextView>(); },
         [](TextView& view, TextPos at) { return static_cast<NoneTextView&>(view).X(at); }},
        {"windows", [] { return std::make_unique<WinTextView>(HiddenWindow()); }, XInWinView},
    };
}

// Wine's control takes a time that grows with the square of a paragraph.
int TextViewSampleShare() {
    return IsWine() ? 5 : 1;
}
