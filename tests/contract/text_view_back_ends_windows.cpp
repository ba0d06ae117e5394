#include "platform/none/none_text_view.h"
#include "platform/windows/text_pane/win_text_view.h"
#include "tests/contract/text_view_contract.h"
#include "tests/contract/windows_text_view_bench.h"

namespace {
int XInWinView(TextView& view, TextPos position) {
    return static_cast<WinTextView&>(view).Pane().CharacterRect(position).left;
}
} // namespace

std::vector<TextViewBackEnd> TextViewBackEnds() {
    return {
        {"none", [] { return std::make_unique<NoneTextView>(); },
         [](TextView& view, TextPos at) { return static_cast<NoneTextView&>(view).X(at); }},
        {"windows", [] { return std::make_unique<WinTextView>(HiddenWindow()); }, XInWinView},
    };
}
