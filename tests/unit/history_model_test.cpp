// Thousands of random commands of several people, against a simple model of what every list should
// hold.
#include "test_form.h"

#include "app/open_book.h"
#include "common/text.h"
#include "common/utf.h"

#include <doctest/doctest.h>

#include <algorithm>
#include <map>
#include <random>

namespace {
using Paths = std::vector<std::u16string>;

std::u16string BookName(std::size_t number) {
    return u"/b/" + NumberText(static_cast<std::int64_t>(number)) + u".txt";
}

// What the lists should hold, on the screen and on disk.
struct Model {
    Paths profiles{u"Default"};
    std::map<std::u16string, Paths> disk;
    Paths list;
    bool shown = false;
    std::u16string text;       // the path of the book in the view
    std::vector<bool> missing; // for each place of the list, when its caption was last made

    Paths& OnDisk() { return disk[profiles[0]]; }
    void Save() { // the reading state of the shown book
        if (shown && std::ranges::find(OnDisk(), list[0]) == OnDisk().end())
            OnDisk().push_back(list[0]);
    }
    void Show(std::size_t index) {
        std::rotate(list.begin(), list.begin() + static_cast<std::ptrdiff_t>(index),
                    list.begin() + static_cast<std::ptrdiff_t>(index) + 1);
        shown = true;
        text = list[0];
        OnDisk() = list;
    }
};

class Session {
  public:
    Session() : test_(std::make_unique<TestForm>()) {
        for (std::size_t i = 0; i < books; ++i)
            test_->PutBook(BookName(i), TextOf(BookName(i)));
        REQUIRE(test_->Start());
    }

    void Step() {
        switch (Any(12)) {
        case 0:
        case 1:
        case 2: Open(BookName(Any(books))); break;
        case 3:
        case 4: Choose(); break;
        case 5: Remove(); break;
        case 6: RemoveMissing(); break;
        case 7: AddProfile(u"P" + NumberText(static_cast<std::int64_t>(Any(4)))); break;
        case 8: SwitchProfile(); break;
        case 9: RemoveProfile(); break;
        case 10: ChangeDisk(); break;
        case 11: Any(4) != 0 ? Autosave() : Restart(); break;
        }
        Check();
    }

    // How often a command of each kind did something.
    std::map<std::string, int> done;

  private:
    static constexpr std::size_t books = 9;

    // Of its own for each book: one of another that has gone would be that book, moved.
    static std::string TextOf(const std::u16string& path) {
        return "Once upon a time in " + Utf16ToUtf8(path) + "\n";
    }

    std::size_t Any(std::size_t count) { return random_() % count; }

    bool Exists(const std::u16string& path) { return test_->Files().FileExists(path); }
    bool IsGone(const std::u16string& path) { return !Exists(path); }

    void MakeCaptions(std::size_t first, std::size_t last) {
        model_.missing.resize(model_.list.size());
        for (std::size_t i = first; i <= last && i < model_.list.size(); ++i)
            model_.missing[i] = IsGone(model_.list[i]);
    }
    void Show(std::size_t index) {
        model_.Show(index);
        MakeCaptions(0, index);
    }

    void Open(const std::u16string& path) {
        OpenBook(test_->form, path);
        if (!Exists(path)) return;
        const auto known = std::ranges::find(model_.list, path);
        auto index = static_cast<std::size_t>(known - model_.list.begin());
        if (known == model_.list.end()) {
            model_.Save();
            model_.list.push_back(path);
            index = model_.list.size() - 1;
        } else if (index == 0 && model_.shown) {
            return;
        }
        ++done["open"];
        Show(index);
    }

    void Choose() {
        if (model_.list.empty()) return;
        const std::size_t index = Any(model_.list.size());
        test_->Menus().Click(test_->Menu().mFileList, static_cast<int>(index));
        if (model_.missing[index] || (index == 0 && model_.shown)) return;
        if (IsGone(model_.list[index])) {
            ++done["gone since"];
            return MakeCaptions(index, index);
        }
        ++done["choose"];
        Show(index);
    }

    void Remove() {
        if (model_.list.empty()) return;
        const std::size_t index = Any(model_.list.size());
        test_->Menus().Click(test_->Menu().mFileRemoveList, static_cast<int>(index));
        const bool shownRemoved = index == 0 && model_.shown;
        model_.list.erase(model_.list.begin() + static_cast<std::ptrdiff_t>(index));
        MakeCaptions(index, model_.list.size());
        ++done["remove"];
        if (model_.list.empty()) model_.shown = false;
        if (!shownRemoved) model_.OnDisk() = model_.list;
    }

    void RemoveMissing() {
        test_->Menus().Open(test_->Menu().mFile);
        const bool some = !model_.list.empty() && std::ranges::count(model_.missing, true) != 0;
        REQUIRE(test_->Menu().mFileNonFound[0].enabled == some);
        test_->Menus().Click(test_->Menu().mFileNonFound);
        if (!some) return;
        ++done["remove missing"];
        std::erase_if(model_.list, [this](const std::u16string& path) { return IsGone(path); });
        MakeCaptions(0, model_.list.size());
        if (model_.list.empty()) model_.shown = false;
        model_.OnDisk() = model_.list;
    }

    // The list of the current profile from disk, with its first book that exists on the screen.
    void Load() {
        model_.list = model_.OnDisk();
        const auto first = std::ranges::find_if(
            model_.list, [&](const std::u16string& path) { return Exists(path); });
        model_.shown = first != model_.list.end();
        if (model_.shown) std::rotate(model_.list.begin(), first, first + 1);
        MakeCaptions(0, model_.list.size());
        if (model_.shown) model_.text = model_.list[0];
    }

    void MakeCurrent(std::size_t index) {
        const auto chosen = model_.profiles.begin() + static_cast<std::ptrdiff_t>(index);
        std::rotate(model_.profiles.begin(), chosen, chosen + 1);
        Load();
    }

    void AddProfile(const std::u16string& name) {
        test_->Dialogs().textAnswer = name;
        test_->Menus().Click(test_->Menu().mUserNew);
        if (name == model_.profiles[0]) return;
        auto known = std::ranges::find(model_.profiles, name);
        ++done["add profile"];
        if (known == model_.profiles.end())
            known = model_.profiles.insert(model_.profiles.end(), name);
        MakeCurrent(static_cast<std::size_t>(known - model_.profiles.begin()));
    }

    void SwitchProfile() {
        const std::size_t index = Any(model_.profiles.size());
        test_->Menus().Click(test_->Menu().mProfileList, static_cast<int>(index));
        if (index == 0) return;
        ++done["switch profile"];
        MakeCurrent(index);
    }

    void RemoveProfile() {
        const std::size_t index = Any(model_.profiles.size());
        test_->Menus().Click(test_->Menu().mUserDeleteList, static_cast<int>(index));
        if (index == 0) return;
        ++done["remove profile"];
        model_.profiles.erase(model_.profiles.begin() + static_cast<std::ptrdiff_t>(index));
    }

    void ChangeDisk() {
        const std::u16string path = BookName(Any(books));
        ++done[Exists(path) ? "file away" : "file back"];
        if (Exists(path))
            test_->Files().Remove(path);
        else
            test_->PutBook(path, TextOf(path));
    }

    void Autosave() {
        ++done["autosave"];
        test_->Timer().Tick(60);
        model_.Save();
    }

    void Restart() {
        ++done["restart"];
        test_->Close();
        model_.Save();
        test_ = std::make_unique<TestForm>(*test_);
        REQUIRE(test_->Start());
        Load();
    }

    static Paths Captions(const MenuArray& list) {
        Paths captions;
        for (const MenuItem& item : list.items)
            captions.push_back(item.caption);
        return captions;
    }

    void Check() {
        REQUIRE(test_->Order() == model_.list);
        REQUIRE(IsBookShown(test_->form) == model_.shown);
        MenuTree& menu = test_->Menu();
        if (!model_.list.empty()) REQUIRE(menu.mFileList[0].checked == model_.shown);
        REQUIRE(Captions(menu.mProfileList) == model_.profiles);
        REQUIRE(Captions(menu.mUserDeleteList) == model_.profiles);
        if (!model_.list.empty()) REQUIRE(Captions(menu.mFileRemoveList) == model_.list);
        for (std::size_t i = 0; i < model_.list.size(); ++i)
            REQUIRE(menu.mFileList[i].enabled == !model_.missing[i]);
        if (model_.shown)
            REQUIRE(test_->Window().title ==
                    u"Norvaset [" + model_.profiles[0] + u"] - " + model_.text);
        const auto file = ProfileFile::Parse(test_->DataFile(), 1252, nullptr);
        for (const auto& [profile, paths] : model_.disk) {
            Paths stored;
            for (const auto& line : file.SectionLines(profile + u"\\mFileList"))
                stored.push_back(line.substr(0, line.find(u'=')));
            REQUIRE(stored == paths);
        }
    }

    std::mt19937 random_{20261121};
    std::unique_ptr<TestForm> test_;
    Model model_;
};
} // namespace

TEST_CASE("history: 10,000 commands of several people leave every list as it should be") {
    Session session;
    for (int step = 0; step < 10000; ++step) {
        CAPTURE(step);
        session.Step();
    }
    CHECK(session.done.size() == 12);
    for (const auto& done : session.done)
        CHECK_MESSAGE(done.second > 10, done.first);
}
