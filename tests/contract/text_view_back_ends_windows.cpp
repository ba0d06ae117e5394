#include "platform/none/none_text_view.h"
#include "platform/windows/text_view/win_text_view.h"
#include "tests/contract/text_view_contract.h"
#include "tests/contract/windows_text_view_bench.h"

std::vector<TextViewBackEnd> TextViewBackEnds() {
    return {
        {"none", [] { return std::make_unique<NoneTextView>(); }},
        {"windows", [] { return std::make_unique<WinTextView>(HiddenWindow()); }},
    };
}

// Wine's control takes a time that grows with the square of a paragraph.
int TextViewSampleShare() {
    return IsWine() ? 5 : 1;
}
