// The accessible tree of the windows and dialogs.
#include "platform/qt/dialogs/find_dialog.h"
#include "platform/qt/dialogs/font_dialog.h"
#include "platform/qt/dialogs/qt_dialogs.h"
#include "platform/qt/dialogs/rich_message.h"
#include "platform/qt/help/qt_help_window.h"
#include "platform/qt/text_view/text_widget.h"
#include "platform/qt/window/qt_status_bar.h"
#include "platform/qt/window/qt_window.h"

#include <doctest/doctest.h>

#include <QAccessible>
#include <QApplication>
#include <QDate>
#include <QLocale>
#include <QTimer>

namespace {
QAccessibleInterface& Accessible(QObject* object) {
    auto* accessible = QAccessible::queryAccessibleInterface(object);
    REQUIRE(accessible);
    return *accessible;
}

// The accessible name of a control: that of its label, or else its own.
std::string NameOf(QWidget& widget) {
    const QAccessibleInterface& accessible = Accessible(&widget);
    const auto labels = accessible.relations(QAccessible::Label);
    const QAccessibleInterface& named = labels.empty() ? accessible : *labels.front().first;
    return named.text(QAccessible::Name).toStdString();
}

// The accessible names in tab order.
std::string TabOrder(QWidget& window) {
    window.show();
    std::string names;
    QWidget* widget = &window;
    do {
        widget = widget->nextInFocusChain();
        const bool stops = widget->isVisible() && widget->isEnabled() && !widget->isWindow() &&
                           !widget->focusProxy() && widget->focusPolicy() & Qt::TabFocus;
        if (stops) names += NameOf(*widget) + '|';
    } while (widget != &window);
    return names;
}

HelpContents Contents() {
    HelpContents contents;
    contents.windowTitle = u"The Help";
    contents.titles = {u"One", u"Two"};
    contents.page = [](int) { return "{\\rtf1 hello\\par}"; };
    contents.search = [](std::u16string_view) {
        return std::vector<HelpFinding>{{1, {0, 5}, u"Two", u"hello", {{0, 3}}}};
    };
    return contents;
}
} // namespace

TEST_CASE("accessible roles: the main window is a window, and the frame of the text is not") {
    QtWindow window;
    QtStatusBar bar(window.InnerArea());
    StatusPanel date;
    date.style = PanelStyle::Date;
    bar.SetPanels({date});
    window.SetTitle(u"Norvaset - A Book");
    QAccessibleInterface& accessible = Accessible(&window);
    CHECK(accessible.role() == QAccessible::Window);
    CHECK(accessible.text(QAccessible::Name) == "Norvaset - A Book");
    CHECK(Accessible(window.InnerArea()).role() == QAccessible::Client);
    CHECK(Accessible(window.ViewArea()->parentWidget()).role() == QAccessible::Pane);
    QAccessibleInterface* status = Accessible(window.InnerArea()).child(1);
    REQUIRE(status);
    CHECK(status->role() == QAccessible::StatusBar);
    CHECK(status->text(QAccessible::Name) ==
          QLocale::system().toString(QDate::currentDate(), QLocale::ShortFormat));
}

TEST_CASE("accessible roles: controls of a dialog have names, and a tab order") {
    FindRequest request;
    request.text = u"quay";
    FindDialog find(nullptr, request);
    CHECK(TabOrder(find) == "Find what:|Match whole word only|Match case|Find|Cancel|");
    FontRequest fontRequest{u"", {u"DejaVu Sans", 12, 0}};
    FontDialog font(nullptr, fontRequest);
    CHECK(TabOrder(font) == "Font:|Style:|Size:|Strikeout|Underline|Color...|Script:|OK|Cancel|");
    fontRequest.readings = {{u"Western", u"line"}, {u"Greek", u"line"}};
    FontDialog withReadings(nullptr, fontRequest);
    CHECK(TabOrder(withReadings) ==
          "Font:|Style:|Size:|Strikeout|Underline|Color...|Script:|A line of "
          "this book in each charset, likeliest first:|OK|Cancel|");
}

TEST_CASE("accessible roles: the parts of the help and its topic have names") {
    QtHelpWindow window;
    window.Show(Contents(), 1);
    HelpWidget* help = nullptr;
    for (QWidget* widget : QApplication::topLevelWidgets())
        if (auto* shown = dynamic_cast<HelpWidget*>(widget); shown && shown->isVisible())
            help = shown;
    REQUIRE(help);
    CHECK(Accessible(help).role() == QAccessible::Window);
    CHECK(TabOrder(*help) == "Search the help|Topics|Two|");
}

TEST_CASE("accessible roles: the text of a dialog is read with it") {
    const auto whileOpen = [](const std::function<void(QDialog&)>& action) {
        QTimer::singleShot(0, qApp, [action] {
            auto* dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget());
            REQUIRE(dialog);
            action(*dialog);
            dialog->reject();
        });
    };
    QtDialogs dialogs(nullptr);
    whileOpen([](QDialog& dialog) {
        CHECK(TabOrder(dialog) == "Name of the new profile:|OK|Cancel|");
        CHECK(Accessible(&dialog).role() == QAccessible::Dialog);
    });
    dialogs.AskText(u"New Profile", u"&Name of the new profile:");
    whileOpen([](QDialog& dialog) {
        CHECK(TabOrder(dialog) == "Update|Later|");
        for (auto* area : dialog.findChildren<QAbstractScrollArea*>()) {
            CHECK(Accessible(area).role() == QAccessible::StaticText);
            CHECK(Accessible(area).text(QAccessible::Name) == "There is a new version.");
        }
    });
    dialogs.ShowRichMessage("{\\rtf1 There is a {\\b new} version.\\par}", u"Update",
                            {u"&Update", u"&Later"});
    Message message;
    message.title = u"Message";
    message.text = u"The book is gone.";
    whileOpen([](QDialog& dialog) {
        CHECK(Accessible(&dialog).role() == QAccessible::AlertMessage);
        CHECK(Accessible(dialog.findChild<QWidget*>("qt_msgbox_label")).text(QAccessible::Name) ==
              "The book is gone.");
    });
    dialogs.ShowMessage(message);
}
