// The help file and the update file: any bytes. What is taken for a help file can be shown and
// searched.
#include "formats/rtf/rtf_writer.h"
#include "shell/help/help_search.h"
#include "shell/update/update_check.h"
#include "tests/fuzz/require.h"

#include <cstdint>
#include <string_view>

namespace {
void CheckFinding(const HelpBook& book, const HelpFinding& finding) {
    const std::u16string& page = book.topics.at(finding.page).page.text;
    Require(finding.place.start >= 0 && finding.place.length > 0);
    Require(finding.place.start + finding.place.length <= TextPos(page.size()));
    TextPos end = 0;
    for (const HelpSpan& mark : finding.marks) {
        Require(mark.start >= end && mark.length > 0);
        end = mark.start + mark.length;
    }
    Require(end <= TextPos(finding.excerpt.size()));
}
} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view bytes(reinterpret_cast<const char*>(data), size);
    const UpdateResult update = CompareVersions({}, bytes);
    Require(update.newVersion.find_first_not_of(u"0123456789.") == std::u16string::npos);
    const auto book = ParseHelpFile(bytes);
    if (!book) return 0;
    for (const HelpTopic& topic : book->topics) {
        WriteRtf(topic.page);
        for (const std::u16string& typed : {topic.page.text, topic.title, std::u16string(u"e o")})
            for (const HelpFinding& finding : SearchHelp(*book, typed))
                CheckFinding(*book, finding);
    }
    return 0;
}
