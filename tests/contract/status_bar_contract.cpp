// What the port of the status bar promises, on every back end.
#include "tests/contract/status_bar_contract.h"

#include <doctest/doctest.h>

namespace {
const std::vector<StatusPanel> threePanels = {{u"Common", PanelStyle::Text, true},
                                              {u"Pagination", PanelStyle::Text, false},
                                              {u"Date", PanelStyle::Date, false}};
} // namespace

TEST_CASE("status bar contract: has the height and the place that it is given") {
    OnEach(StatusBarBackEnds(), [](StatusBarUnderTest& test) {
        test.Port().SetHeight(18);
        CHECK(test.Port().Height() == 18);
        test.Port().SetBounds({0, 300, 500, 18});
        CHECK(test.Shown() == Rect{0, 300, 500, 18});
        test.Port().SetBounds({4, 310, 400, 24});
        CHECK(test.Shown() == Rect{4, 310, 400, 24});
        CHECK(test.Port().Height() == 24);
    });
}

TEST_CASE("status bar contract: a spring panel takes the width that the others leave") {
    OnEach(StatusBarBackEnds(), [](StatusBarUnderTest& test) {
        test.Port().SetPanels(threePanels);
        int springs[2] = {};
        for (const int width : {500, 800}) {
            CAPTURE(width);
            test.Port().SetBounds({0, 0, width, 18});
            const std::vector<Rect> panels = test.Panels();
            REQUIRE(panels.size() == 3);
            const int right = panels[2].left + panels[2].width;
            CHECK(right <= width);
            CHECK(right > width - 5);
            CHECK(panels[1].left >= panels[0].left + panels[0].width);
            CHECK(panels[2].left >= panels[1].left + panels[1].width);
            springs[width == 800] = panels[0].width;
        }
        CHECK(springs[1] - springs[0] == 300);
    });
}

TEST_CASE("status bar contract: a date panel shows today") {
    OnEach(StatusBarBackEnds(), [](StatusBarUnderTest& test) {
        test.Port().SetPanels(threePanels);
        const std::u16string before = test.Today(), shown = test.DateText();
        CHECK((shown == before || shown == test.Today())); // midnight may pass
    });
}

TEST_CASE("status bar contract: a bar too narrow for its panels does no harm") {
    OnEach(StatusBarBackEnds(), [](StatusBarUnderTest& test) {
        test.Port().SetPanels(threePanels);
        for (const int width : {0, 1, 40}) {
            test.Port().SetBounds({0, 0, width, 18});
            CHECK(test.Panels().size() == 3);
        }
        test.Port().SetPanels({});
        CHECK(test.Panels().empty());
    });
}
