// The contract tests of ports whose back ends need Qt's application object.
#define DOCTEST_CONFIG_IMPLEMENT
#include "platform/none/none_text_view.h"
#include "platform/qt/text_view/qt_text_view.h"
#include "tests/contract/text_view_contract.h"

#include <doctest/doctest.h>

#include <QApplication>

std::vector<TextViewBackEnd> TextViewBackEnds() {
    return {{"none", [] { return std::make_unique<NoneTextView>(); }},
            {"qt", [] { return std::make_unique<QtTextView>(nullptr); }}};
}

int TextViewSampleShare() {
    return 1;
}

int main(int argc, char** argv) {
    QApplication application(argc, argv);
    return doctest::Context(argc, argv).run();
}
