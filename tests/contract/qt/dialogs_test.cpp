// The dialogs on Qt.
#include "platform/qt/dialogs/qt_dialogs.h"

#include <doctest/doctest.h>

#include <QApplication>
#include <QCheckBox>
#include <QColorDialog>
#include <QDialog>
#include <QDoubleSpinBox>
#include <QFontComboBox>
#include <QKeyEvent>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <QTimer>

#include <algorithm>
#include <functional>

namespace {
// Calls `action` with the next dialog that opens.
void WhileOpen(const std::function<void(QDialog&)>& action) {
    QTimer::singleShot(0, qApp, [action] {
        auto* dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget());
        REQUIRE(dialog);
        action(*dialog);
    });
}

void Press(QDialog& dialog, int key, const QString& text = {}) {
    QWidget* focused = dialog.focusWidget() ? dialog.focusWidget() : &dialog;
    for (const auto type : {QEvent::KeyPress, QEvent::KeyRelease}) {
        QKeyEvent event(type, key, Qt::NoModifier, text);
        QApplication::sendEvent(focused, &event);
    }
}

void Confirm(QDialog& dialog) {
    Press(dialog, Qt::Key_Return);
}

QPushButton* DefaultButton(QDialog& dialog) {
    for (QPushButton* button : dialog.findChildren<QPushButton*>())
        if (button->isDefault()) return button;
    return nullptr;
}

const ViewFont fonts[] = {
    {u"DejaVu Serif", 12, 0},
    {u"DejaVu Serif", 12.5, 204, true, false, false, true},
    {u"A Face That Nobody Has", 9.75, 177, false, true, true, false},
    {u"Two  Blanks ", 11.123456, 77},
    {u"", 0, 1},
    {u"DejaVu Sans", 2000, 255, true, true, true, true},
};
} // namespace

TEST_CASE("qt dialogs: a font confirmed untouched is exactly the one given") {
    QtDialogs dialogs(nullptr);
    for (const ViewFont& font : fonts)
        for (const Color color : {0x000000u, 0xFFFFFFu, 0x123456u}) {
            CAPTURE(font.size);
            WhileOpen([](QDialog& dialog) {
                CHECK(dialog.windowTitle() == "Font");
                Confirm(dialog);
            });
            const FontAnswer answer = dialogs.ChooseFont(u"Font", font, color);
            CHECK(answer.result == DialogResult::Ok);
            CHECK(answer.font == font);
            CHECK(answer.color == color);
        }
}

TEST_CASE("qt dialogs: what is changed of a font, and nothing else") {
    QtDialogs dialogs(nullptr);
    const ViewFont given = fonts[2];
    WhileOpen([](QDialog& dialog) {
        dialog.findChild<QDoubleSpinBox*>()->setValue(14);
        Confirm(dialog);
    });
    ViewFont expected = given;
    expected.size = 14;
    CHECK(dialogs.ChooseFont(u"", given, 0).font == expected);

    std::u16string last;
    WhileOpen([&last](QDialog& dialog) {
        for (QCheckBox* box : dialog.findChildren<QCheckBox*>())
            box->toggle();
        auto* face = dialog.findChild<QFontComboBox*>();
        CHECK(face->currentIndex() == -1); // the family is not installed
        CHECK(face->placeholderText() == "A Face That Nobody Has");
        face->setCurrentIndex(face->count() - 1);
        last = face->currentText().toStdU16String();
        Confirm(dialog);
    });
    const ViewFont chosen = dialogs.ChooseFont(u"", given, 0).font;
    expected = given;
    expected.name = last;
    expected.underline = !given.underline;
    expected.strikethrough = !given.strikethrough;
    CHECK(chosen == expected);
}

TEST_CASE("qt dialogs: Escape cancels") {
    QtDialogs dialogs(nullptr);
    const auto giveUp = [](QDialog& dialog) { Press(dialog, Qt::Key_Escape); };
    WhileOpen(giveUp);
    CHECK(dialogs.ChooseFont(u"", fonts[0], 0).result == DialogResult::Cancel);
    WhileOpen(giveUp);
    CHECK(dialogs.ChooseColor(u"", 0).result == DialogResult::Cancel);
    WhileOpen(giveUp);
    CHECK(dialogs.AskFind({}).result == DialogResult::Cancel);
}

TEST_CASE("qt dialogs: a colour confirmed untouched is exactly the one given") {
    QtDialogs dialogs(nullptr);
    QColorDialog::setCustomColor(3, Qt::red);
    for (const Color color : {0x000000u, 0xFFFFFFu, 0x123456u, 0xFEDCBAu, 0x010203u}) {
        WhileOpen([](QDialog& dialog) {
            CHECK(dialog.windowTitle() == "Background");
            Confirm(dialog);
        });
        const ColorAnswer answer = dialogs.ChooseColor(u"Background", color);
        CHECK(answer.result == DialogResult::Ok);
        CHECK(answer.color == color);
    }
    for (int i = 0; i < 16; ++i)
        CHECK(QColorDialog::customColor(i) == QColor(Qt::white));
}

TEST_CASE("qt dialogs: the text to find is returned with its options") {
    QtDialogs dialogs(nullptr);
    FindRequest request;
    request.title = u"Find";
    request.font = {u"DejaVu Serif", 8};
    request.history = {u"newest", u"older"};
    WhileOpen([](QDialog& dialog) {
        CHECK(dialog.windowTitle() == "Find");
        REQUIRE(DefaultButton(dialog));
        CHECK_FALSE(DefaultButton(dialog)->isEnabled());
        auto* combo = dialog.findChild<QComboBox*>();
        CHECK(combo->count() == 2);
        CHECK(combo->itemText(0) == "newest");
        CHECK(combo->font().family() == "DejaVu Serif");
        Press(dialog, Qt::Key_Return); // disabled
        CHECK(dialog.isVisible());
        Press(dialog, Qt::Key_N, "n"); // no completion from the history
        CHECK(DefaultButton(dialog)->isEnabled());
        Confirm(dialog);
    });
    const FindAnswer answer = dialogs.AskFind(request);
    CHECK(answer.result == DialogResult::Ok);
    CHECK(answer.text == u"n");
    CHECK_FALSE(answer.wholeWord);
    CHECK_FALSE(answer.matchCase);
}

TEST_CASE("qt dialogs: a search confirmed untouched is exactly the one given") {
    QtDialogs dialogs(nullptr);
    const std::u16string texts[] = {u"word", u" two  blanks ", u"two\nlines\twith\vbreaks",
                                    u"\u05E9\u05DC\u05D5\u05DD \U0001D11E",
                                    std::u16string(100'000, u'x')};
    for (const std::u16string& text : texts) {
        FindRequest request;
        request.text = text;
        request.wholeWord = true;
        request.history = {u"older"};
        WhileOpen([](QDialog& dialog) {
            CHECK(dialog.findChild<QLineEdit*>()->hasSelectedText());
            Confirm(dialog);
        });
        const FindAnswer answer = dialogs.AskFind(request);
        CHECK(answer.text == text);
        CHECK(answer.wholeWord);
        CHECK_FALSE(answer.matchCase);
    }
}

TEST_CASE("qt dialogs: a message, its lines and its icon") {
    QtDialogs dialogs(nullptr);
    const std::pair<MessageIcon, QMessageBox::Icon> icons[] = {
        {MessageIcon::None, QMessageBox::NoIcon},
        {MessageIcon::Information, QMessageBox::Information},
        {MessageIcon::Question, QMessageBox::Question},
        {MessageIcon::Exclamation, QMessageBox::Warning},
        {MessageIcon::Critical, QMessageBox::Critical},
    };
    for (const auto& [icon, native] : icons) {
        Message message;
        message.text = u"<b>two\r\nlines";
        message.title = u"Title";
        message.icon = icon;
        WhileOpen([native = native](QDialog& dialog) {
            const auto& box = dynamic_cast<QMessageBox&>(dialog);
            CHECK(box.text() == "<b>two\nlines");
            CHECK(box.textFormat() == Qt::PlainText);
            CHECK(box.windowTitle() == "Title");
            CHECK(box.icon() == native);
            Confirm(dialog);
        });
        CHECK(dialogs.ShowMessage(message) == DialogResult::Ok);
    }
}

TEST_CASE("qt dialogs: the Help button opens the topic, and the message stays") {
    QtDialogs dialogs(nullptr);
    std::vector<std::string> asked;
    dialogs.onHelp = [&asked](const std::string& topic) { asked.push_back(topic); };
    Message message;
    message.helpButton = true;
    message.helpTopic = "mFileOpen";
    WhileOpen([&asked](QDialog& dialog) {
        QPushButton* help = nullptr;
        for (QPushButton* button : dialog.findChildren<QPushButton*>())
            if (!button->isDefault()) help = button;
        REQUIRE(help);
        help->click();
        help->click();
        CHECK(asked == std::vector<std::string>{"mFileOpen", "mFileOpen"});
        CHECK(dialog.isVisible());
        CHECK(dialog.windowModality() == Qt::WindowModal); // the help window stays usable
        Press(dialog, Qt::Key_Escape);
    });
    CHECK(dialogs.ShowMessage(message) == DialogResult::Ok);
}

TEST_CASE("qt dialogs: a message of rich text gives the number of the button") {
    QtDialogs dialogs(nullptr);
    const auto ask = [&dialogs](const std::function<void(QDialog&)>& action) {
        WhileOpen(action);
        return dialogs.ShowRichMessage("{\\rtf1 some {\\ul text}}", u"Title",
                                       {u"Cancel", u"Download"});
    };
    const auto buttons = [](QDialog& dialog) {
        auto list = dialog.findChildren<QPushButton*>();
        std::ranges::sort(list, {}, [](const QPushButton* button) { return button->x(); });
        return list;
    };
    CHECK(ask([&](QDialog& dialog) {
              CHECK(dialog.windowTitle() == "Title");
              REQUIRE(buttons(dialog).size() == 2);
              CHECK(buttons(dialog)[0]->text() == "Cancel");
              CHECK(buttons(dialog)[0]->isDefault());
              buttons(dialog)[0]->click();
          }) == 1);
    CHECK(ask([&](QDialog& dialog) { buttons(dialog)[1]->click(); }) == 2);
    CHECK(ask([](QDialog& dialog) { Confirm(dialog); }) == 1);
    CHECK(ask([](QDialog& dialog) { Press(dialog, Qt::Key_Escape); }) == 0);
    CHECK(ask([](QDialog& dialog) { dialog.close(); }) == 0);
}
