#include "shell/help/help_contents.h"

#include "common/paths.h"
#include "formats/rtf/rtf_writer.h"
#include "shell/help/help_file.h"
#include "shell/help/help_search.h"

#include <memory>
#include <optional>

std::u16string FindHelpFile(const Files& files, const std::u16string& besideProgram,
                            const std::u16string& sharedFolder) {
    if (sharedFolder.empty() || files.FileExists(besideProgram)) return besideProgram;
    std::u16string shared = sharedFolder + files.Separator();
    shared += FileNameOf(besideProgram, files.Separator());
    return files.FileExists(shared) ? shared : besideProgram;
}

namespace {
std::u16string ProblemOf(const std::u16string& path, ReadStatus status) {
    const bool missing = status == ReadStatus::NotFound;
    return u"The help file " + std::u16string(missing ? u"is missing" : u"is damaged") + u":\r\n" +
           path + u"\r\nInstall the program again to have it back.";
}

HelpContents ContentsOf(HelpBook book, const std::u16string& windowTitle) {
    HelpContents contents;
    contents.windowTitle = windowTitle;
    for (const HelpTopic& topic : book.topics)
        contents.titles.push_back(topic.title);
    const auto shared = std::make_shared<const HelpBook>(std::move(book));
    contents.page = [shared](int page) { return WriteRtf(shared->topics.at(page).page); };
    contents.search = [shared](std::u16string_view typed) { return SearchHelp(*shared, typed); };
    return contents;
}
} // namespace

HelpAtTopic ReadHelp(const Files& files, const std::u16string& path, std::string_view topic,
                     const std::u16string& windowTitle) {
    HelpAtTopic help;
    std::string bytes;
    const ReadStatus status = files.Read(path, maxHelpFileSize, bytes);
    std::optional<HelpBook> book;
    if (status == ReadStatus::Ok) book = ParseHelpFile(bytes);
    if (!book) {
        help.problem = ProblemOf(path, status);
        return help;
    }
    help.page = FindHelpTopic(*book, topic);
    help.contents = ContentsOf(std::move(*book), windowTitle);
    return help;
}
