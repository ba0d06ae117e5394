#include "shell/help/help_file.h"

#include "common/text.h"
#include "common/utf.h"
#include "shell/help/help_page.h"

#include <algorithm>

namespace {
constexpr std::string_view firstLine = "help 1", lastLine = "= end";

std::string_view NextLine(std::string_view& bytes) {
    const std::size_t end = bytes.find('\n');
    std::string_view line = bytes.substr(0, end);
    bytes.remove_prefix(end == bytes.npos ? bytes.size() : end + 1);
    if (line.ends_with('\r')) line.remove_suffix(1);
    return line;
}

// "3. text" begins with a number.
std::size_t NumberLength(std::string_view line) {
    const std::size_t digits = line.find_first_not_of("0123456789");
    return digits > 0 && digits != line.npos && line.substr(digits, 2) == ". " ? digits + 1 : 0;
}

std::string_view TitleIn(std::string_view heading) { // "id id: Title"
    const std::size_t colon = heading.find(": ");
    return colon == heading.npos ? "" : Trim(heading.substr(colon + 2));
}

// Of all topics, of which any may name any.
HelpTitles TitlesIn(std::string_view bytes) {
    HelpTitles titles;
    for (int page = 0; !bytes.empty();)
        if (const std::string_view line = NextLine(bytes);
            line.starts_with("= ") && line != lastLine)
            titles.emplace(Utf8ToUtf16(TitleIn(line.substr(2))), page++);
    return titles;
}

// Reads the lines of one topic after another; a paragraph grows until something else begins.
class TopicReader {
  public:
    explicit TopicReader(std::string_view bytes) : titles_(TitlesIn(bytes)) {}
    bool Begin(std::string_view heading); // "id id: Title"
    bool Line(std::string_view line);
    void FinishTopic();
    HelpBook book;

  private:
    void Start(HelpParagraph, std::string_view text, std::string_view label = {});
    void FinishParagraph();

    HelpTopic topic_;
    const HelpTitles titles_;
    HelpPageWriter page_{titles_};
    bool inTopic_ = false, inParagraph_ = false;
    HelpParagraph kind_ = HelpParagraph::Text;
    std::string text_, label_;
};

bool TopicReader::Begin(std::string_view heading) {
    FinishTopic();
    const std::size_t colon = heading.find(": ");
    if (colon == heading.npos) return false;
    std::string_view ids = heading.substr(0, colon);
    topic_ = {};
    page_ = HelpPageWriter(titles_);
    while (!(ids = Trim(ids)).empty()) {
        const std::string_view id = ids.substr(0, ids.find(' '));
        topic_.ids.emplace_back(id);
        ids.remove_prefix(id.size());
    }
    const std::string_view title = TitleIn(heading);
    topic_.title = Utf8ToUtf16(title);
    inTopic_ = !topic_.ids.empty() && !title.empty();
    if (inTopic_) page_.Add(HelpParagraph::Title, topic_.title);
    return inTopic_;
}

bool TopicReader::Line(std::string_view line) {
    if (!inTopic_) return line.empty();
    if (line.starts_with("== ")) {
        Start(HelpParagraph::Heading, line.substr(3));
        FinishParagraph();
    } else if (line.starts_with("- ")) {
        Start(HelpParagraph::Item, line.substr(2));
    } else if (const std::size_t number = NumberLength(line)) {
        Start(HelpParagraph::Numbered, line.substr(number), line.substr(0, number));
    } else if (line.starts_with("| ")) {
        const std::size_t bar = line.find(" | ", 1);
        if (bar == line.npos) return false;
        Start(HelpParagraph::Key, line.substr(bar + 3), Trim(line.substr(2, bar - 2)));
    } else if (Trim(line).empty()) {
        FinishParagraph();
    } else if (inParagraph_) {
        (text_ += ' ') += Trim(line);
    } else {
        Start(HelpParagraph::Text, line);
    }
    return true;
}

void TopicReader::Start(HelpParagraph kind, std::string_view text, std::string_view label) {
    FinishParagraph();
    kind_ = kind;
    text_ = Trim(text);
    label_ = label;
    inParagraph_ = true;
}

void TopicReader::FinishParagraph() {
    if (inParagraph_) page_.Add(kind_, Utf8ToUtf16(text_), Utf8ToUtf16(label_));
    inParagraph_ = false;
}

void TopicReader::FinishTopic() {
    FinishParagraph();
    if (!inTopic_) return;
    topic_.page = page_.Finish();
    book.topics.push_back(std::move(topic_));
    inTopic_ = false;
}
} // namespace

std::optional<HelpBook> ParseHelpFile(std::string_view bytes) {
    if (bytes.size() > maxHelpFileSize || !IsValidUtf8(bytes) || NextLine(bytes) != firstLine)
        return std::nullopt;
    TopicReader reader(bytes);
    while (!bytes.empty()) {
        const std::string_view line = NextLine(bytes);
        if (line == lastLine) {
            reader.FinishTopic();
            if (!bytes.empty() || reader.book.topics.empty()) return std::nullopt;
            return std::move(reader.book);
        }
        const bool isRead =
            line.starts_with("= ") ? reader.Begin(line.substr(2)) : reader.Line(line);
        if (!isRead) return std::nullopt;
    }
    return std::nullopt; // cut off
}

int FindHelpTopic(const HelpBook& book, std::string_view id) {
    const auto found = std::ranges::find_if(book.topics, [id](const HelpTopic& topic) {
        return std::ranges::find(topic.ids, id) != topic.ids.end();
    });
    return found == book.topics.end() ? 0 : static_cast<int>(found - book.topics.begin());
}
