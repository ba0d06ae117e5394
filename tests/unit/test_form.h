// A main form on the headless back end, with its fakes at hand.
#pragma once

#include "app/main_form.h"
#include "app/shown_book.h"
#include "app/start_up.h"
#include "books/book_record.h"
#include "books/history.h"
#include "common/menu_items.h"
#include "datafile/list_persistence.h"
#include "platform/none/none_ports.h"
#include "show_text.h"

#include <string>
#include <vector>

class TestForm {
  public:
    explicit TestForm(Ports ports = MakeNonePorts()) : form(std::move(ports)) {}

    // The next run of the program: on the files and the registry that `earlier` left when it ended.
    explicit TestForm(TestForm& earlier)
        : earlierClocks_(std::move(earlier.earlierClocks_)), form(PortsAfter(earlier.form.ports)) {
        earlierClocks_.push_back(std::move(earlier.form.ports.clock));
    }

    bool Start() {
        const bool runs = Form_Load(form);
        Window().ComeUp();
        return runs;
    }
    void Close() { Window().Close(); }

    void PutBook(const std::u16string& path, std::string_view bytes = "Once upon a time.\n") {
        Files().AddFile(path, bytes);
    }
    // Writes a data file before the start.
    void PutDataFile(std::string_view bytes) { Files().AddFile(dataPath, bytes); }
    std::string DataFile() const {
        return static_cast<const NoneFiles&>(*form.ports.files).Bytes(dataPath);
    }
    std::vector<std::u16string> Order() const { // the paths of the history list
        std::vector<std::u16string> paths;
        paths.reserve(form.menu.mFileList.items.size());
        for (int i = 0; i < form.history.Count(); ++i)
            paths.push_back(GetBookPath(form.history, i));
        return paths;
    }
    BookRecord Record(int index) const { return BookRecord::Parse(form.menu.mFileList[index].tag); }

    NoneWindow& Window() { return static_cast<NoneWindow&>(*form.ports.window); }
    NoneMenuBar& Menus() { return static_cast<NoneMenuBar&>(*form.ports.menuBar); }
    NoneTextView& View() { return static_cast<NoneTextView&>(*form.ports.textView); }
    NoneHtmlView& Page() { return static_cast<NoneHtmlView&>(*form.ports.htmlView); }
    NoneDialogs& Dialogs() { return static_cast<NoneDialogs&>(*form.ports.dialogs); }
    NoneHelpWindow& Help() { return static_cast<NoneHelpWindow&>(*form.ports.helpWindow); }
    NoneUpdateCheck& Update() { return static_cast<NoneUpdateCheck&>(*form.ports.updateCheck); }
    NoneVersionInfo& Version() { return static_cast<NoneVersionInfo&>(*form.ports.versionInfo); }
    NoneTimer& Timer() { return static_cast<NoneTimer&>(*form.ports.saveTimer); }
    NoneTimer& ChangeTimer() { return static_cast<NoneTimer&>(*form.ports.changeTimer); }
    NoneFileWatch& FileWatch() { return static_cast<NoneFileWatch&>(*form.ports.fileWatch); }
    NoneShell& Shell() { return static_cast<NoneShell&>(*form.ports.shell); }
    NoneRegistry& Registry() { return static_cast<NoneRegistry&>(*form.ports.registry); }
    NoneFiles& Files() { return static_cast<NoneFiles&>(*form.ports.files); }
    NoneClock& Clock() { return static_cast<NoneClock&>(*form.ports.clock); }
    NoneStatusBar& Status() { return static_cast<NoneStatusBar&>(*form.ports.statusBar); }
    NoneLocale& Locale() { return static_cast<NoneLocale&>(*form.ports.locale); }
    MenuTree& Menu() { return form.menu; }

    static constexpr const char16_t* dataPath = u"/app/Norvaset.dat";

  private:
    static Ports PortsAfter(Ports& earlier) {
        Ports ports = MakeNonePorts();
        ports.files = std::move(earlier.files);
        ports.fileWatch =
            std::make_unique<NoneFileWatch>(static_cast<NoneFiles&>(*ports.files).changes);
        ports.registry = std::move(earlier.registry);
        return ports;
    }

    std::vector<std::unique_ptr<::Clock>> earlierClocks_; // the files have one of them

  public:
    MainForm form;
};

// A text of `lines` lines, "line 0", "line 1", ...
inline std::string NumberedLines(int lines) {
    std::string text;
    for (int i = 0; i < lines; ++i)
        text += "line " + std::to_string(i) + "\n";
    return text;
}
