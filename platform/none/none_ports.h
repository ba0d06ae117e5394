// The headless back end: every port in memory, for tests and fuzzers.
#pragma once

#include "platform/none/none_clock.h"
#include "platform/none/none_file_watch.h"
#include "platform/none/none_files.h"
#include "platform/none/none_html_view.h"
#include "platform/none/none_text_view.h"
#include "platform/none/none_window.h"
#include "platform/ports.h"

#include <map>
#include <optional>
#include <vector>

class NoneMenuBar : public MenuBar {
  public:
    void Attach(const std::vector<MenuArray*>& top, MenuEvents events) override {
        topLevel = top;
        events_ = std::move(events);
    }
    // What a user sees of the top level, not what the model says by now.
    void Refresh() override {
        enabled.clear();
        for (const MenuArray* menu : topLevel)
            enabled.push_back((*menu)[0].enabled);
    }
    void ShowMenu(MenuArray& menu) override { shown = &menu; } // the test opens it
    void ShowContextMenu(const std::vector<MenuArray*>& items) override { contextItems = items; }
    void Open(MenuArray& menu) { events_.onOpening(menu); }
    // As a user does: nothing happens on an item that is greyed or hidden.
    void Click(MenuArray& array, int index = 0) {
        if (array[index].enabled && array[index].visible) events_.onClick(array, index);
    }
    std::vector<MenuArray*> topLevel, contextItems;
    std::vector<bool> enabled;
    MenuArray* shown = nullptr;

  private:
    MenuEvents events_;
};

class NoneStatusBar : public StatusBar {
  public:
    void SetPanels(const std::vector<StatusPanel>& given) override { panels = given; }
    int Height() const override { return height; }
    void SetHeight(int pixels) override { height = pixels; }
    void SetBounds(const Rect& given) override { bounds = given; }
    std::vector<StatusPanel> panels;
    int height = 0;
    Rect bounds;
};

// Answers what a test has prepared, and keeps what was shown.
class NoneDialogs : public Dialogs {
  public:
    OpenFileAnswer OpenFile(const OpenFileRequest& request) override {
        openRequests.push_back(request);
        if (whileOpen) whileOpen();
        return openAnswer;
    }
    std::u16string AskText(const std::u16string& title, const std::u16string& prompt) override {
        textRequests.emplace_back(title, prompt);
        return textAnswer;
    }
    ColorAnswer ChooseColor(const std::u16string& title, Color start) override {
        colorRequests.emplace_back(title, start);
        return colorAnswer;
    }
    FontAnswer ChooseFont(const FontRequest& request) override {
        fontRequests.push_back(request);
        if (fontAnswer) return *fontAnswer;
        return {DialogResult::Ok, request.font, request.color, request.reading}; // as it is
    }
    FindAnswer AskFind(const FindRequest& request) override {
        findRequests.push_back(request);
        return findAnswer;
    }
    PlaceAnswer AskPlace(const PlaceRequest& request) override {
        placeRequests.push_back(request);
        return placeAnswer;
    }
    DialogResult ShowMessage(const Message& message) override {
        messages.push_back(message);
        if (whileOpen) whileOpen();
        return messageAnswer;
    }
    int ShowRichMessage(const std::string& rtf, const std::u16string& title,
                        const std::vector<std::u16string>& buttons) override {
        richMessages.push_back({rtf, title, buttons});
        return richMessageAnswer;
    }
    std::vector<OpenFileRequest> openRequests;
    OpenFileAnswer openAnswer;
    std::vector<std::pair<std::u16string, std::u16string>> textRequests;
    std::u16string textAnswer;
    std::vector<std::pair<std::u16string, Color>> colorRequests;
    ColorAnswer colorAnswer;
    std::vector<FontRequest> fontRequests;
    std::optional<FontAnswer> fontAnswer;
    std::vector<FindRequest> findRequests;
    FindAnswer findAnswer;
    std::vector<PlaceRequest> placeRequests;
    PlaceAnswer placeAnswer;
    std::vector<Message> messages;
    DialogResult messageAnswer = DialogResult::Ok;
    struct RichMessage {
        std::string rtf;
        std::u16string title;
        std::vector<std::u16string> buttons;
    };
    std::vector<RichMessage> richMessages;
    int richMessageAnswer = 0;
    std::function<void()> whileOpen; // what happens around while a dialog waits
};

class NoneHelpWindow : public HelpWindow {
  public:
    void Show(const HelpContents& given, int at) override {
        contents = given;
        page = at;
        open = true;
    }
    bool Raise() override {
        raised += open;
        return open;
    }
    HelpContents contents;
    int page = -1, raised = 0;
    bool open = false;
};

class NoneClipboard : public Clipboard {
  public:
    void SetText(const std::u16string& given) override { text = given; }
    std::u16string text;
};

class NoneTimer : public Timer {
  public:
    void Start(int milliseconds, std::function<void()> onTick) override {
        interval = milliseconds;
        onTick_ = std::move(onTick);
    }
    void Stop() override { onTick_ = nullptr; }
    bool IsRunning() const { return onTick_ != nullptr; }
    void Tick(int times = 1) {
        for (int i = 0; i < times && onTick_; ++i) {
            const auto tick = onTick_; // may stop the timer
            tick();
        }
    }
    int interval = 0;

  private:
    std::function<void()> onTick_;
};

class NoneShell : public Shell {
  public:
    std::u16string DefaultTextEditor() const override { return u"/bin/plain-editor"; }
    void OpenWith(const std::u16string& program, const std::u16string& argument) override {
        started.emplace_back(program, argument);
    }
    void OpenAddress(const std::u16string& address) override { opened.push_back(address); }
    void OpenFile(const std::u16string& path) override { openedFiles.push_back(path); }
    void AddRecentDocument(const std::u16string& path) override { recent.push_back(path); }
    InstanceClaim ClaimDataFile(const std::u16string& path) override {
        claimedPath = path;
        return claim;
    }
    HandOver HandOverBook(const std::u16string&, const std::u16string& book, int ms) override {
        handedOver.push_back(book);
        timeout = ms;
        return handOverAnswer;
    }
    std::vector<std::u16string> handedOver;
    int timeout = 0; // milliseconds, of the last time
    HandOver handOverAnswer = HandOver::Taken;
    std::vector<std::pair<std::u16string, std::u16string>> started;
    std::vector<std::u16string> opened, openedFiles, recent;
    std::u16string claimedPath;
    InstanceClaim claim;
};

class NoneRegistry : public Registry {
  public:
    std::u16string Read(const std::u16string& key, const std::u16string& name) const override {
        const auto value = values.find({key, name});
        return value == values.end() ? u"" : value->second;
    }
    int Write(const std::u16string& key, const std::u16string& name,
              const std::u16string& text) override {
        values[{key, name}] = text;
        ++writes;
        return 0;
    }
    std::map<std::pair<std::u16string, std::u16string>, std::u16string> values;
    int writes = 0;
};

class NoneVersionInfo : public VersionInfo {
  public:
    ProgramVersion OwnVersion() const override { return version; }
    std::u16string FileDescription(const std::u16string& program,
                                   std::u16string_view /*ending*/) const override {
        const auto description = descriptions.find(program);
        return description == descriptions.end() ? u"" : description->second;
    }
    ProgramVersion version;
    std::map<std::u16string, std::u16string> descriptions;
};

class NoneUpdateCheck : public UpdateCheck {
  public:
    FetchAnswer Fetch(const std::u16string& address) override {
        fetched.push_back(address);
        if (whileFetching) whileFetching();
        return answer;
    }
    std::vector<std::u16string> Packages() const override { return packages; }
    std::vector<std::u16string> fetched, packages;
    FetchAnswer answer;
    std::function<void()> whileFetching;
};

class NoneLocale : public Locale {
  public:
    int AnsiCodePage() const override { return codePage; }
    std::u16string MonthName(int month, NameLength) const override;
    std::u16string DayName(int weekday, NameLength) const override;
    int codePage = 1252;
};

// All of them, with a program in "/app" whose folder can be written.
Ports MakeNonePorts();
