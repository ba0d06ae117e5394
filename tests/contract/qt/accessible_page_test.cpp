// What a page of our own view says to screen readers: its text, its structure, its events.
#include "platform/posix/posix_files.h"
#include "platform/qt/html_view/html_widget.h"
#include "platform/qt/html_view/qt_page_view.h"
#include "platform/qt/text_view/accessibility/accessible_text.h"

#include <doctest/doctest.h>

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QFile>
#include <QTemporaryDir>
#include <private/qguiapplication_p.h>
#include <qpa/qplatformaccessibility.h>
#include <qpa/qplatformintegration.h>

namespace {
struct Heard {
    QAccessible::Event event;
    QString name;
};
std::vector<Heard> heard;

void Listen(QAccessibleEvent* event) {
    QAccessibleInterface* about = event->accessibleInterface();
    heard.push_back({event->type(), about ? about->text(QAccessible::Name) : QString()});
}

class PageBench {
  public:
    explicit PageBench(const QByteArray& body) {
        QGuiApplicationPrivate::platformIntegration()->accessibility()->setActive(true);
        QAccessible::installUpdateHandler(Listen);
        view.onLoaded = [this](int, const std::u16string&) { ++loads; };
        view.onLink = [this](const std::u16string& url, const std::u16string&) {
            links.push_back(url);
        };
        view.SetBounds({0, 0, 500, 300});
        view.SetVisible(true);
        Show(body);
    }
    ~PageBench() {
        QAccessible::installUpdateHandler(nullptr);
        QGuiApplicationPrivate::platformIntegration()->accessibility()->setActive(false);
    }
    void Show(const QByteArray& body) {
        const QString path = folder.filePath("page.htm");
        QFile file(path);
        REQUIRE(file.open(QIODevice::WriteOnly));
        file.write("<!DOCTYPE html><title>Lanterns</title>" + body);
        file.close();
        const int before = loads;
        view.Navigate(path.toStdU16String(), 1);
        QElapsedTimer time;
        time.start();
        while (loads == before && time.elapsed() < 10'000)
            QCoreApplication::processEvents(QEventLoop::AllEvents, 20);
        REQUIRE(loads == before + 1);
    }
    HtmlWidget& Widget() { return static_cast<HtmlWidget&>(*view.Widget()); }
    QAccessibleInterface& Document() { return *QAccessible::queryAccessibleInterface(&Widget()); }
    QAccessibleTextInterface& Text() { return *Document().textInterface(); }
    QString All() { return Text().text(0, -1); }

    QTemporaryDir folder;
    PosixFiles files;
    QtPageView view{nullptr, files};
    int loads = 0;
    std::vector<std::u16string> links;
};

QString At(PageBench& page, int offset, QAccessible::TextBoundaryType type) {
    int start = 0, end = 0;
    return page.Text().textAtOffset(offset, type, &start, &end);
}
} // namespace

TEST_CASE("accessible page: it is a document called by its title, read by the units of texts") {
    PageBench page("<h1>The quay</h1><p>Nine <i>letters</i>. And more.<p>Last");
    CHECK(page.Document().role() == QAccessible::WebDocument);
    CHECK(page.Document().state().readOnly);
    CHECK(page.Document().text(QAccessible::Name) == "Lanterns");
    CHECK(page.All() == "The quay\nNine letters. And more.\nLast");
    CHECK(page.Text().characterCount() == page.All().size());
    const int nine = int(page.All().indexOf("Nine"));
    CHECK(At(page, nine, QAccessible::WordBoundary) == "Nine ");
    CHECK(At(page, nine, QAccessible::SentenceBoundary) == "Nine letters. ");
    CHECK(At(page, nine, QAccessible::ParagraphBoundary) == "Nine letters. And more.\n");
    CHECK(At(page, nine, QAccessible::LineBoundary) == "Nine letters. And more.\n");
    CHECK(At(page, nine, QAccessible::CharBoundary) == "N");
    const QRect box = page.Text().characterRect(nine);
    CHECK(box.width() > 0);
    CHECK(page.Text().offsetAtPoint(box.center()) == nine);

    heard.clear();
    page.Text().setSelection(0, nine, nine + 4);
    CHECK(page.view.SelectedText() == u"Nine");
    REQUIRE(heard.size() == 2);
    CHECK(heard[0].event == QAccessible::TextCaretMoved);
    CHECK(heard[1].event == QAccessible::TextSelectionChanged);
    page.Text().setCursorPosition(2);
    CHECK(page.Text().selectionCount() == 0);
    CHECK(page.Text().cursorPosition() == 2);
}

TEST_CASE("accessible page: the looks of its text are attributes") {
    PageBench page("<h2 style='font-size:20px'>The quay</h2><p>plain <b>bold</b>");
    int start = 0, end = 0;
    const QString heading = page.Text().attributes(0, &start, &end);
    CHECK(heading.contains("font-weight:bold;"));
    CHECK(heading.contains("font-size:15pt;"));
    CHECK(start == 0);
    CHECK(end == 9);
    const int bold = int(page.All().indexOf("bold"));
    CHECK(page.Text().attributes(bold, &start, &end).contains("font-weight:bold;"));
    CHECK(start == bold);
    CHECK(page.Text().attributes(bold - 2, &start, &end).contains("font-weight:normal;"));
}

TEST_CASE("accessible page: headings, links, lists, tables and pictures are its children") {
    PageBench page(
        "<h1>The quay</h1><p>See <a href='other.htm'>the other</a>.<ul><li>one<li>two</ul>"
        "<table><tr><td>a<td>b</table><img src='x.png' alt='A lantern'>");
    QAccessibleInterface& document = page.Document();
    REQUIRE(document.childCount() == 6); // with the scroll bar
    const auto child = [&](int index) -> QAccessibleInterface& {
        QAccessibleInterface* found = document.child(index);
        REQUIRE(found);
        CHECK(found->isValid());
        CHECK(document.indexOfChild(found) == index);
        CHECK(found->parent() == &document);
        return *found;
    };
    CHECK(child(0).role() == QAccessible::Heading);
    CHECK(child(0).text(QAccessible::Name) == "The quay");
    CHECK(child(0).text(QAccessible::Description) == "Heading level 1");
    CHECK_FALSE(child(0).actionInterface());
    const QRect box = child(0).rect();
    CHECK(box.contains(page.Text().characterRect(3).center()));

    QAccessibleInterface& link = child(1);
    CHECK(link.role() == QAccessible::Link);
    CHECK(link.text(QAccessible::Name) == "the other");
    CHECK(link.text(QAccessible::Description) == "other.htm");
    CHECK(link.state().linked);
    REQUIRE(link.actionInterface());
    link.actionInterface()->doAction(link.actionInterface()->actionNames().value(0));
    QCoreApplication::processEvents();
    REQUIRE(page.links.size() == 1);
    CHECK(page.links[0].ends_with(u"other.htm"));

    QAccessibleInterface& list = child(2);
    CHECK(list.role() == QAccessible::List);
    REQUIRE(list.childCount() == 2);
    CHECK(list.child(1)->role() == QAccessible::ListItem);
    CHECK(list.child(1)->text(QAccessible::Name) == "two");
    CHECK(list.child(1)->parent() == &list);
    CHECK(list.indexOfChild(list.child(1)) == 1);
    CHECK_FALSE(list.child(2));

    QAccessibleInterface& table = child(3);
    CHECK(table.role() == QAccessible::Table);
    CHECK(table.text(QAccessible::Description) == "1 rows, 2 columns");
    CHECK(table.child(0)->role() == QAccessible::Row);
    CHECK(table.child(0)->child(1)->role() == QAccessible::Cell);
    CHECK(table.child(0)->child(1)->text(QAccessible::Name) == "b");

    CHECK(child(4).role() == QAccessible::Graphic);
    CHECK(child(4).text(QAccessible::Name) == "A lantern");
    CHECK(document.child(5)->role() != QAccessible::Graphic);
    CHECK_FALSE(document.child(6));
}

TEST_CASE("accessible page: what was held of a page before is nothing any more") {
    PageBench page("<h1>One</h1><p>text");
    QAccessibleInterface* before = page.Document().child(0);
    REQUIRE(before);
    heard.clear();
    page.Show("<p>No heading");
    CHECK_FALSE(before->isValid());
    CHECK(before->text(QAccessible::Name).isEmpty());
    CHECK(before->childCount() == 0);
    CHECK_FALSE(before->parent());
    CHECK(before->rect().isEmpty());
    CHECK(page.Document().childCount() == 1);
    CHECK(std::ranges::any_of(
        heard, [](const Heard& one) { return one.event == QAccessible::DocumentLoadComplete; }));
}

TEST_CASE("accessible page: a link that Tab leads to is told to have the focus") {
    PageBench page("<p><a href='a.htm'>first</a> and <a href='b.htm'>second</a>");
    heard.clear();
    CHECK(page.Widget().Pane().FocusLink(true));
    CHECK(page.Widget().Pane().FocusLink(true));
    std::vector<QString> focused;
    for (const Heard& one : heard)
        if (one.event == QAccessible::Focus) focused.push_back(one.name);
    CHECK(focused == std::vector<QString>{"first", "second"});
}

TEST_CASE("accessible page: what is announced describes it until it loses the focus") {
    PageBench page("<p>text");
    page.Widget().Announce(u"Full screen.");
    CHECK(page.Document().text(QAccessible::Description) == "Full screen.");
}
