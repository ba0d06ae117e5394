// What the help window on Qt has beyond its contract.
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
    contents.titles = {u"One", u"Two"};
    contents.page = [](int page) { return "{\\rtf1 page " + std::to_string(page) + "\\par}"; };
    contents.search = [](std::u16string_view) { return std::vector<HelpFinding>{}; };
    return contents;
}

HelpWidget* Shown() {
    for (QWidget* widget : QApplication::topLevelWidgets())
        if (auto* help = dynamic_cast<HelpWidget*>(widget); help && help->isVisible()) return help;
    return nullptr;
}

void Press(QWidget& widget, int key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
    for (const auto type : {QEvent::KeyPress, QEvent::KeyRelease}) {
        QKeyEvent event(type, key, modifiers);
        QApplication::sendEvent(&widget, &event);
    }
}
} // namespace

TEST_CASE("qt help window: closes with its owner, and does not keep the program running") {
    {
        QtHelpWindow window;
        window.Show(Contents(), 0);
        REQUIRE(Shown());
        CHECK_FALSE(Shown()->testAttribute(Qt::WA_QuitOnClose));
    }
    CHECK_FALSE(Shown());
}

TEST_CASE("qt help window: the line that says that nothing was found cannot be selected") {
    QtHelpWindow window;
    window.Show(Contents(), 0);
    REQUIRE(Shown());
    Shown()->findChild<QLineEdit*>()->setText("nothing");
    auto* list = Shown()->findChild<QListWidget*>();
    REQUIRE(list->count() == 1);
    CHECK_FALSE(list->item(0)->flags().testFlag(Qt::ItemIsSelectable));
}

TEST_CASE("qt help window: Page Down in the search field scrolls the page") {
    QtHelpWindow window;
    window.Show(Contents(), 0);
    REQUIRE(Shown());
    auto& search = *Shown()->findChild<QLineEdit*>();
    TextWidget* page = nullptr;
    for (auto* area : Shown()->findChildren<QAbstractScrollArea*>())
        if (auto* view = dynamic_cast<TextWidget*>(area)) page = view;
    REQUIRE(page);
    QApplication::setActiveWindow(Shown());
    search.setFocus();
    Press(search, Qt::Key_PageDown, Qt::ControlModifier); // an unused key does no harm
    CHECK(page->Pane().Caret() == 0);
    Press(search, Qt::Key_PageDown);
    CHECK(page->Pane().Caret() == page->Pane().Source().Length());
}
