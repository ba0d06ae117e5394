// The help window on Qt, without a screen.
#include "platform/qt/help/qt_help_window.h"

#include "platform/qt/help/help_list.h"
#include "platform/qt/text_view/text_widget.h"

#include <doctest/doctest.h>

#include <QApplication>
#include <QKeyEvent>
#include <QLineEdit>

namespace {
HelpContents Contents() {
    HelpContents contents;
    contents.windowTitle = u"The Help";
    contents.titles = {u"One", u"Two", u"Three"};
    contents.page = [](int page) {
        return "{\\rtf1 page " + std::to_string(page) + "\\par hello\\par}";
    };
    contents.search = [](std::u16string_view typed) {
        if (typed != u"hel") return std::vector<HelpFinding>{};
        return std::vector<HelpFinding>{{2, {7, 3}, u"Three", u"hello", {{0, 3}}},
                                        {0, {7, 3}, u"One", u"hello", {{0, 3}}}};
    };
    return contents;
}

HelpWidget* Shown() {
    for (QWidget* widget : QApplication::topLevelWidgets())
        if (auto* help = dynamic_cast<HelpWidget*>(widget); help && help->isVisible()) return help;
    return nullptr;
}

struct Open {
    explicit Open(int page = 0) { window.Show(Contents(), page); }
    HelpWidget& Widget() const { return *Shown(); }
    HelpList& List() const { return *dynamic_cast<HelpList*>(Widget().findChild<QListWidget*>()); }
    QLineEdit& Search() const { return *Widget().findChild<QLineEdit*>(); }
    TextWidget* View() const {
        for (auto* area : Widget().findChildren<QAbstractScrollArea*>())
            if (auto* view = dynamic_cast<TextWidget*>(area)) return view;
        return nullptr;
    }
    std::u16string Text() const { return View()->Text().text; }
    std::u16string Selected() const {
        const TextWidget& view = *View();
        return Text().substr(view.SelStart(), view.SelEnd() - view.SelStart());
    }
    QtHelpWindow window;
};

void Press(QWidget& widget, int key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
    for (const auto type : {QEvent::KeyPress, QEvent::KeyRelease}) {
        QKeyEvent event(type, key, modifiers);
        QApplication::sendEvent(&widget, &event);
    }
}
} // namespace

TEST_CASE("qt help window: opens at a page, with all titles") {
    const Open open(1);
    REQUIRE(Shown());
    CHECK(open.Widget().windowTitle() == "The Help");
    CHECK(open.List().count() == 3);
    CHECK(open.List().currentRow() == 1);
    CHECK(open.Text() == u"page 1\nhello\n");
    open.List().setCurrentRow(2);
    CHECK(open.Text() == u"page 2\nhello\n");
}

TEST_CASE("qt help window: a search lists what was found, and shows the best") {
    const Open open;
    open.Search().setText("hel");
    REQUIRE(open.List().count() == 2);
    CHECK(open.List().currentRow() == 0);
    CHECK(open.Text() == u"page 2\nhello\n");
    CHECK(open.Selected() == u"hel");
    open.List().setCurrentRow(1);
    CHECK(open.Text() == u"page 0\nhello\n");
    open.Search().setText("nothing");
    CHECK(open.List().count() == 1);
    CHECK_FALSE(open.List().item(0)->flags().testFlag(Qt::ItemIsSelectable));
    CHECK(open.Text() == u"page 0\nhello\n"); // what was shown stays
    open.Search().setText(" ");
    CHECK(open.List().count() == 3);
    CHECK(open.List().currentRow() == 0);
}

TEST_CASE("qt help window: shown again while open, it is the same window at the new page") {
    Open open;
    open.Search().setText("hel");
    HelpWidget* before = Shown();
    open.window.Show(Contents(), 1);
    CHECK(Shown() == before);
    CHECK(open.Search().text().isEmpty());
    CHECK(open.Text() == u"page 1\nhello\n");
}

TEST_CASE("qt help window: brought to the front as it is, while it is open") {
    QtHelpWindow closed;
    CHECK_FALSE(closed.Raise());
    Open open;
    open.List().setCurrentRow(2);
    CHECK(open.window.Raise());
    CHECK(open.Text() == u"page 2\nhello\n");
    open.Widget().showMinimized();
    CHECK(open.window.Raise());
    CHECK_FALSE(open.Widget().isMinimized());
    open.Widget().close();
    CHECK_FALSE(open.window.Raise()); // also before it has quite gone
    open.window.Show(Contents(), 1);
    QApplication::processEvents();
    QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    REQUIRE(Shown());
    CHECK(open.Text() == u"page 1\nhello\n");
}

TEST_CASE("qt help window: goes with its owner, and does not keep the program") {
    {
        const Open open;
        CHECK_FALSE(open.Widget().testAttribute(Qt::WA_QuitOnClose));
    }
    CHECK_FALSE(Shown());
}

TEST_CASE("qt help window: keys") {
    const Open open;
    QApplication::setActiveWindow(&open.Widget());
    Press(open.Search(), Qt::Key_Down);
    CHECK(open.List().hasFocus());
    Press(open.List(), Qt::Key_Down);
    CHECK(open.Text() == u"page 1\nhello\n");
    Press(open.List(), Qt::Key_PageDown, Qt::ControlModifier); // nobody's key ends all the same
    open.Search().setFocus();
    Press(open.Search(), Qt::Key_PageDown);
    CHECK(open.View()->SelStart() == TextPos(open.Text().size()));
}
