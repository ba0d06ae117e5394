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
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <QScreen>
#include <QTimer>
#include <QTreeWidget>

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
            const FontAnswer answer = dialogs.ChooseFont({u"Font", font, color});
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
    CHECK(dialogs.ChooseFont({u"", given}).font == expected);

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
    const ViewFont chosen = dialogs.ChooseFont({u"", given}).font;
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
    CHECK(dialogs.ChooseFont({u"", fonts[0]}).result == DialogResult::Cancel);
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

TEST_CASE("qt dialogs: a message shows its whole text, however long its lines and words") {
    QtDialogs dialogs(nullptr);
    for (const int words : {1, 10, 14, 16, 18, 20, 30, 100})
        for (const int letters : {4, 40, 250}) {
            CAPTURE(words);
            CAPTURE(letters);
            Message message;
            message.text = std::u16string(static_cast<std::size_t>(letters), u'n') + u"\r\n";
            for (int i = 0; i < words; ++i)
                message.text += u"words ";
            message.icon = MessageIcon::Exclamation;
            message.helpButton = true;
            WhileOpen([](QDialog& dialog) {
                const auto* label = dialog.findChild<QLabel*>("qt_msgbox_label");
                REQUIRE(label);
                const QSize shown = label->contentsRect().size();
                const QRect needed = label->fontMetrics().boundingRect(
                    QRect(QPoint(0, 0), QSize(shown.width(), 10'000)),
                    label->wordWrap() ? Qt::TextWrapAnywhere | Qt::TextWordWrap : 0, label->text());
                CHECK(needed.width() <= shown.width());
                CHECK(needed.height() <= shown.height());
                CHECK(dialog.width() <= dialog.screen()->availableGeometry().width());
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

namespace {
FontRequest RequestWithReadings() {
    return {u"Font",
            {u"DejaVu Serif", 12, 0},
            0,
            {{u"Western", u"\u00CA\u00E0\u00EA", 0},
             {u"Cyrillic (DOS)", u"\u0421\u043A\u0430", 204},
             {u"Cyrillic (Windows)", u"\u0420\u0453", 204, true},
             {u"Unicode", u"\uFFFD", -1},
             {u"Greek", u"\u03A3", 161}},
            0};
}

// What the dialog answers when `action` is done in it.
FontAnswer AnswerAfter(const FontRequest& request,
                       const std::function<void(QTreeWidget&, QComboBox&)>& action) {
    WhileOpen([&](QDialog& dialog) {
        const auto boxes = dialog.findChildren<QComboBox*>();
        auto* list = dialog.findChild<QTreeWidget*>();
        REQUIRE(list);
        action(*list, *boxes.back());
        Confirm(dialog);
    });
    return QtDialogs(nullptr).ChooseFont(request);
}

void ChooseByHand(QComboBox& box, int charset) {
    box.setCurrentIndex(box.findData(charset));
    emit box.activated(box.currentIndex());
}
} // namespace

TEST_CASE("qt dialogs: a text's readings are listed in their order, the present one selected") {
    const FontRequest request = RequestWithReadings();
    const FontAnswer untouched = AnswerAfter(request, [](QTreeWidget& list, QComboBox&) {
        REQUIRE(list.topLevelItemCount() == 5);
        CHECK(list.topLevelItem(1)->text(0) == "Cyrillic (DOS)");
        CHECK(list.topLevelItem(1)->text(1) == QString::fromUtf16(u"\u0421\u043A\u0430"));
        CHECK(list.currentIndex().row() == 0);
    });
    CHECK(untouched.font == request.font);
    CHECK(untouched.reading == 0);
    WhileOpen([](QDialog& dialog) {
        CHECK_FALSE(dialog.findChild<QTreeWidget*>());
        Confirm(dialog);
    });
    CHECK(QtDialogs(nullptr).ChooseFont({u"", fonts[0]}).reading == -1);
}

TEST_CASE("qt dialogs: a reading brings its script along, and a script its reading") {
    FontRequest request = RequestWithReadings();
    FontAnswer answer = AnswerAfter(request, [](QTreeWidget& list, QComboBox& script) {
        list.setCurrentItem(list.topLevelItem(1));
        CHECK(script.currentData().toInt() == 204);
    });
    CHECK(answer.reading == 1);
    CHECK(answer.font.charset == 204);
    answer = AnswerAfter(request, [](QTreeWidget& list, QComboBox& script) {
        ChooseByHand(script, 204);
        CHECK(list.currentIndex().row() == 2);
    });
    CHECK(answer.reading == 2);
    answer = AnswerAfter(request, [](QTreeWidget& list, QComboBox& script) {
        ChooseByHand(script, 178); // no reading has it
        CHECK(list.selectedItems().isEmpty());
    });
    CHECK(answer.reading == -1);
    CHECK(answer.font.charset == 178);

    request.font.charset = 77; // none of the box: it comes back with the first reading
    answer = AnswerAfter(request, [](QTreeWidget& list, QComboBox& script) {
        list.setCurrentItem(list.topLevelItem(4));
        CHECK(script.currentData().toInt() == 161);
        list.setCurrentItem(list.topLevelItem(0));
    });
    CHECK(answer.font == request.font);
    CHECK(answer.reading == 0);
}

TEST_CASE("qt dialogs: Unicode reads in any script") {
    FontRequest request = RequestWithReadings();
    FontAnswer answer = AnswerAfter(request, [](QTreeWidget& list, QComboBox& script) {
        list.setCurrentItem(list.topLevelItem(3));
        CHECK(script.currentData().toInt() == 0);
        ChooseByHand(script, 204);
    });
    CHECK(answer.reading == 3);
    CHECK(answer.font.charset == 204);
}
