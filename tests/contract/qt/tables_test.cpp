#include "platform/qt/dialogs/file_filter.h"
#include "platform/qt/system/desktop_entries.h"
#include "platform/qt/system/qt_locale.h"

#include <doctest/doctest.h>

#include <utility>

TEST_CASE("locale: the ANSI code page of a language") {
    const std::pair<const char*, int> rows[] = {
        {"", 1252},
        {"C", 1252},
        {"POSIX", 1252},
        {"en_US.UTF-8", 1252},
        {"de_DE@euro", 1252},
        {"ru_RU.UTF-8", 1251},
        {"ru", 1251},
        {"uk_UA", 1251},
        {"sr_RS", 1251},
        {"sr_RS@latin", 1250},
        {"sr_RS.UTF-8@latin", 1250},
        {"he_IL", 1255},
        {"ar_EG", 1256},
        {"fa_IR", 1256},
        {"el_GR", 1253},
        {"tr_TR", 1254},
        {"lt_LT", 1257},
        {"pl_PL", 1250},
        {"vi_VN", 1258},
        {"th_TH", 874},
        {"ja_JP.eucJP", 932},
        {"ko_KR", 949},
        {"zh_CN.GB18030", 936},
        {"zh_SG", 936},
        {"zh_TW", 950},
        {"zh_HK.UTF-8", 950},
        {"haw_US", 1252},
    };
    for (const auto& row : rows) {
        CAPTURE(row.first);
        CHECK(AnsiCodePageOf(row.first) == row.second);
    }
}

TEST_CASE("desktop entry: the name in the user's language, of the first group only") {
    const char* entry = "# comment\n[Desktop Entry]\nType=Application\r\nName = Editor \n"
                        "Name[de]=Schreiber\nName[de_AT]=Schreiberl\nName[ru]=\u0420\n"
                        "[Desktop Action new]\nName=New window\n";
    CHECK(DesktopEntryName(entry, "en_US") == "Editor");
    CHECK(DesktopEntryName(entry, "C") == "Editor");
    CHECK(DesktopEntryName(entry, "de_DE") == "Schreiber");
    CHECK(DesktopEntryName(entry, "de_AT") == "Schreiberl");
    CHECK(DesktopEntryName(entry, "ru") == "\u0420");
    CHECK(DesktopEntryName("", "de").empty());
    CHECK(DesktopEntryName("Name=Lost\n[Other]\nName=Other", "de").empty());
    CHECK(DesktopEntryName("[Desktop Entry]\nName", "de").empty());
    CHECK(DesktopEntryName("[Desktop Entry]\nName=", "de").empty());
}

TEST_CASE("file dialog: filters in Qt's notation, case-insensitive") {
    OpenFileRequest request;
    CHECK(QtNameFilters(request).isEmpty());
    request.filter = u"Name alone";
    CHECK(QtNameFilters(request).isEmpty());
    request.filter = u"Text Files (*.txt)|*.txt|Pages|*.htm|All Files (*.*)|*.*|";
    CHECK(QtNameFilters(request) == QStringList{"Text Files (*.txt) (*.[tT][xX][tT])",
                                                "Pages (*.[hH][tT][mM])", "All Files (*.*) (*)"});
    request.listed = {u"", u"*.htm;*.html"}; // no patterns for the last filter
    CHECK(QtNameFilters(request) == QStringList{"Text Files (*.txt) (*.[tT][xX][tT])",
                                                "Pages (*.[hH][tT][mM] *.[hH][tT][mM][lL])",
                                                "All Files (*.*) (*)"});
}

TEST_CASE("file dialog: the selected filter, with or without its patterns") {
    OpenFileRequest request;
    request.filter = u"Text Files (*.txt)|*.txt|Pages|*.htm|All Files (*.*)|*.*|";
    const QStringList filters = QtNameFilters(request);
    for (int number = 1; number <= 3; ++number) {
        const QString& filter = filters[number - 1];
        CHECK(NameFilterNumber(filters, filter) == number);
        CHECK(NameFilterNumber(filters, filter.left(filter.lastIndexOf(" ("))) == number);
        CHECK(NameFilterNumber(filters, filter.left(filter.lastIndexOf("("))) == number);
    }
    for (const char* none : {"", "Text Files", "Text Files (*.rtf)", "("})
        CHECK(NameFilterNumber(filters, none) == 3);
    CHECK(NameFilterNumber({}, "Pages") == 0);
}
