// The windows and dialogs as a screen reader finds them, without a screen.
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
QAccessibleInterface& Told(QObject* object) {
    auto* told = QAccessible::queryAccessibleInterface(object);
    REQUIRE(told);
    return *told;
}

// What is said of a control when the keyboard comes to it: the label beside it, else its own name.
std::string Said(QWidget& widget) {
    const QAccessibleInterface& told = Told(&widget);
    const auto labels = told.relations(QAccessible::Label);
    const QAccessibleInterface& named = labels.empty() ? told : *labels.front().first;
    return named.text(QAccessible::Name).toStdString();
}

// Of the controls that the Tab key comes to, in its order.
std::string TabOrder(QWidget& window) {
    window.show();
    std::string names;
    QWidget* widget = &window;
    do {
        widget = widget->nextInFocusChain();
        const bool stops = widget->isVisible() && widget->isEnabled() && !widget->isWindow() &&
                           !widget->focusProxy() && widget->focusPolicy() & Qt::TabFocus;
        if (stops) names += Said(*widget) + '|';
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

TEST_CASE("accessible parts: the main window is a window, and what frames the text is none") {
    QtWindow window;
    QtStatusBar bar(window.InnerArea());
    StatusPanel date;
    date.style = PanelStyle::Date;
    bar.SetPanels({date});
    window.SetTitle(u"Norvaset - A Book");
    QAccessibleInterface& told = Told(&window);
    CHECK(told.role() == QAccessible::Window);
    CHECK(told.text(QAccessible::Name) == "Norvaset - A Book");
    CHECK(Told(window.InnerArea()).role() == QAccessible::Client);
    CHECK(Told(window.ViewArea()->parentWidget()).role() == QAccessible::Pane);
    QAccessibleInterface* status = Told(window.InnerArea()).child(1);
    REQUIRE(status);
    CHECK(status->role() == QAccessible::StatusBar);
    CHECK(status->text(QAccessible::Name) ==
          QLocale::system().toString(QDate::currentDate(), QLocale::ShortFormat));
}

TEST_CASE("accessible parts: the controls of a dialog say what they are, in the order of reading") {
    FindRequest request;
    request.text = u"quay";
    FindDialog find(nullptr, request);
    CHECK(TabOrder(find) == "Find what:|Match whole word only|Match case|Find|Cancel|");
    FontDialog font(nullptr, {u"DejaVu Sans", 12, 0}, 0);
    CHECK(TabOrder(font) == "Font:|Style:|Size:|Strikeout|Underline|Color...|Script:|OK|Cancel|");
}

TEST_CASE("accessible parts: the help says what its parts are and which topic is shown") {
    QtHelpWindow window;
    window.Show(Contents(), 1);
    HelpWidget* help = nullptr;
    for (QWidget* widget : QApplication::topLevelWidgets())
        if (auto* shown = dynamic_cast<HelpWidget*>(widget); shown && shown->isVisible())
            help = shown;
    REQUIRE(help);
    CHECK(Told(help).role() == QAccessible::Window);
    CHECK(TabOrder(*help) == "Search the help|Topics|Two|");
}

TEST_CASE("accessible parts: what a dialog asks or says is read with it") {
    const auto whileOpen = [](const std::function<void(QDialog&)>& act) {
        QTimer::singleShot(0, qApp, [act] {
            auto* dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget());
            REQUIRE(dialog);
            act(*dialog);
            dialog->reject();
        });
    };
    QtDialogs dialogs(nullptr);
    whileOpen([](QDialog& dialog) {
        CHECK(TabOrder(dialog) == "Name of the new profile:|OK|Cancel|");
        CHECK(Told(&dialog).role() == QAccessible::Dialog);
    });
    dialogs.AskText(u"New Profile", u"&Name of the new profile:");
    whileOpen([](QDialog& dialog) {
        CHECK(TabOrder(dialog) == "Update|Later|");
        for (auto* area : dialog.findChildren<QAbstractScrollArea*>()) {
            CHECK(Told(area).role() == QAccessible::StaticText);
            CHECK(Told(area).text(QAccessible::Name) == "There is a new version.");
        }
    });
    dialogs.ShowRichMessage("{\\rtf1 There is a {\\b new} version.\\par}", u"Update",
                            {u"&Update", u"&Later"});
    Message message;
    message.title = u"Message";
    message.text = u"The book is gone.";
    whileOpen([](QDialog& dialog) {
        CHECK(Told(&dialog).role() == QAccessible::AlertMessage);
        CHECK(Told(dialog.findChild<QWidget*>("qt_msgbox_label")).text(QAccessible::Name) ==
              "The book is gone.");
    });
    dialogs.ShowMessage(message);
}
