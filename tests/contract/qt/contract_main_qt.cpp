// The contract tests of ports whose back ends need a QApplication.
#define DOCTEST_CONFIG_IMPLEMENT
#include "platform/none/none_text_view.h"
#include "platform/qt/system/guarded_application.h"
#include "platform/qt/text_view/qt_text_view.h"
#include "platform/qt/text_view/text_widget.h"
#include "tests/contract/text_view_contract.h"

#include <doctest/doctest.h>

namespace {
int XInQtView(TextView& view, TextPos position) {
    auto& widget = static_cast<TextWidget&>(*static_cast<QtTextView&>(view).Widget());
    return widget.CharacterRect(position).left();
}
} // namespace

std::vector<TextViewBackEnd> TextViewBackEnds() {
    return {{"none", [] { return std::make_unique<NoneTextView>(); },
             [](TextView& view, TextPos at) { return static_cast<NoneTextView&>(view).X(at); }},
            {"qt", [] { return std::make_unique<QtTextView>(nullptr); }, XInQtView}};
}

int main(int argc, char** argv) {
    const GuardedApplication application(argc, argv);
    return doctest::Context(argc, argv).run();
}
