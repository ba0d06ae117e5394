// Qt's own file dialog, through its widgets.
#include "platform/qt/dialogs/qt_dialogs.h"
#include "tests/contract/temporary_folder_posix.h"

#include <doctest/doctest.h>

#include <QApplication>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QElapsedTimer>
#include <QFile>
#include <QFileDialog>
#include <QKeyEvent>
#include <QLineEdit>
#include <QListView>
#include <QMessageBox>
#include <QPushButton>
#include <QTimer>
#include <QUrl>

#include <functional>

namespace {

constexpr int deadline = 10'000; // milliseconds

// The widgets that a user operates.
struct Parts {
    explicit Parts(QFileDialog& shown)
        : dialog(shown), type(shown.findChild<QComboBox*>("fileTypeCombo")),
          name(shown.findChild<QLineEdit*>("fileNameEdit")),
          list(shown.findChild<QListView*>("listView")),
          open(shown.findChild<QDialogButtonBox*>()->button(QDialogButtonBox::Open)) {
        REQUIRE((type && name && list && open));
    }
    void PickType(int index) const {
        type->setCurrentIndex(index);
        emit type->activated(index); // as a user's click does
    }
    void TypeName(const QString& text) const {
        name->setFocus();
        name->clear();
        name->insert(text);
    }
    QStringList Listed() const {
        QStringList names;
        for (int row = 0; row < list->model()->rowCount(list->rootIndex()); ++row)
            names += list->model()->index(row, 0, list->rootIndex()).data().toString();
        return names;
    }
    QFileDialog& dialog;
    QComboBox* type;
    QLineEdit* name;
    QListView* list;
    QPushButton* open;
};

bool WaitFor(const std::function<bool()>& condition) {
    QElapsedTimer time;
    time.start();
    while (!condition() && time.elapsed() < deadline)
        QApplication::processEvents(QEventLoop::AllEvents, 20);
    return condition();
}

struct Desk {
    Desk() {
        request.title = u"Open File";
        request.filter = u"Text Files (*.txt)|*.txt|Rich Text Files (*.rtf)|*.rtf|"
                         u"HTML Files (*.htm)|*.htm|All Files (*.*)|*.*|";
        request.listed = {u"*.txt", u"*.rtf", u"*.htm;*.html;*.xhtml", u"*.*"};
        request.initialFolder = QString::fromStdString(folder.path).toStdU16String();
        for (const char* name : {"a.txt", "b.RTF", "c.htm", "d.html", "e.xhtml", "f.log", "g"}) {
            QFile file(Path(name));
            REQUIRE(file.open(QIODevice::WriteOnly));
        }
    }
    QString Path(const QString& name) const {
        return QString::fromStdString(folder.path) + "/" + name;
    }
    OpenFileAnswer Ask(const std::function<void(const Parts&)>& action) const {
        QTimer::singleShot(0, qApp, [&action] {
            auto* dialog = qobject_cast<QFileDialog*>(QApplication::activeModalWidget());
            REQUIRE(dialog);
            action(Parts(*dialog));
            if (dialog->isVisible()) dialog->reject();
        });
        return QtDialogs(nullptr).OpenFile(request);
    }
    TemporaryFolder folder;
    OpenFileRequest request;
};

const QStringList listed[] = {{"a.txt"},
                              {"b.RTF"},
                              {"c.htm", "d.html", "e.xhtml"},
                              {"a.txt", "b.RTF", "c.htm", "d.html", "e.xhtml", "f.log", "g"}};

} // namespace

TEST_CASE("qt file dialog: starts with the requested filter, and returns the selected one") {
    Desk desk;
    for (int first = 1; first <= 4; ++first)
        for (int picked = 0; picked <= 4; ++picked) {
            CAPTURE(first);
            CAPTURE(picked);
            desk.request.filterIndex = first;
            const OpenFileAnswer answer = desk.Ask([&](const Parts& parts) {
                CHECK(parts.type->currentIndex() == first - 1);
                if (picked > 0) parts.PickType(picked - 1);
                const int type = picked > 0 ? picked : first;
                CHECK(WaitFor([&] { return parts.Listed() == listed[type - 1]; }));
                parts.TypeName(desk.Path("g"));
                CHECK(WaitFor([&] { return parts.open->isEnabled(); }));
                parts.open->click();
            });
            CHECK(answer.result == DialogResult::Ok);
            CHECK(answer.filterIndex == (picked > 0 ? picked : first));
            CHECK(QString::fromStdU16String(answer.fileName) == desk.Path("g"));
        }
}

TEST_CASE("qt file dialog: the button opens what the filter hides, by name or path") {
    Desk desk;
    for (const QString& name : {QString("c.htm"), desk.Path("d.html"), QString("f.log")}) {
        CAPTURE(name.toStdString());
        const OpenFileAnswer answer = desk.Ask([&](const Parts& parts) {
            CHECK(WaitFor([&] { return parts.Listed() == listed[0]; }));
            parts.TypeName(name);
            CHECK(parts.open->isEnabled());
            QApplication::processEvents();
            CHECK(parts.open->isEnabled());
            parts.open->click();
        });
        CHECK(answer.result == DialogResult::Ok);
        CHECK(QString::fromStdU16String(answer.fileName).endsWith("/" + name.section('/', -1)));
        CHECK(answer.filterIndex == 1);
    }
}

TEST_CASE("qt file dialog: a pasted path or address is the file that it means") {
    const Desk desk;
    const QString spaced = desk.Path("two %words.txt");
    REQUIRE(QFile(spaced).open(QIODevice::WriteOnly));
    const QString address =
        QString::fromLatin1(QUrl::fromLocalFile(spaced).toEncoded(QUrl::FullyEncoded));
    REQUIRE(address.contains("%20%25words"));
    for (const auto& each : std::initializer_list<std::pair<QString, QString>>{
             {" " + desk.Path("a.txt"), desk.Path("a.txt")},
             {desk.Path("a.txt") + " \n", desk.Path("a.txt")},
             {"a.txt ", desk.Path("a.txt")},
             {address, spaced},
             {address + "\n", spaced},
             {"two %words.txt", spaced}}) {
        const QString &pasted = each.first, &meant = each.second;
        CAPTURE(pasted.toStdString());
        const OpenFileAnswer answer = desk.Ask([&](const Parts& parts) {
            CHECK(WaitFor([&] { return parts.Listed().contains("a.txt"); }));
            parts.TypeName(pasted);
            QTimer::singleShot(0, qApp, [] {
                if (auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget()))
                    box->reject();
            });
            parts.open->click();
        });
        CHECK(answer.result == DialogResult::Ok);
        CHECK(QString::fromStdU16String(answer.fileName) == meant);
    }
}

TEST_CASE("qt file dialog: the button says of what does not exist that it was not found") {
    Desk desk;
    REQUIRE(QFile::link("gone.txt", desk.Path("broken.txt")));
    for (const QString& name :
         {QString("none.txt"), QString("/no/such/file"), desk.Path("broken.txt")}) {
        CAPTURE(name.toStdString());
        QString text;
        const OpenFileAnswer answer = desk.Ask([&](const Parts& parts) {
            CHECK(WaitFor([&] { return parts.Listed() == listed[0]; }));
            CHECK_FALSE(parts.open->isEnabled());
            parts.TypeName(name);
            QApplication::processEvents();
            REQUIRE(parts.open->isEnabled());
            QTimer::singleShot(0, qApp, [&text] {
                auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
                REQUIRE(box);
                text = box->text();
                box->reject();
            });
            parts.open->click();
            CHECK(parts.dialog.isVisible());
            CHECK(parts.name->text() == name);
        });
        CHECK(answer.result == DialogResult::Cancel);
        CHECK(text.contains("File not found"));
        CHECK(text.contains(name.section('/', -1)));
    }
}
