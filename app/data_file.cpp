#include "app/data_file.h"

#include "app/data_trouble.h"
#include "app/main_form.h"
#include "common/text.h"
#include "formats/code_pages.h"

namespace {
constexpr const char16_t* dataFileEnding = u".dat";

std::u16string DecodePage(int codePage, std::string_view bytes) {
    std::u16string text;
    DecodeCodePage(codePage, bytes, text);
    return text;
}
} // namespace

std::u16string ProgramFile(const Files& files, const Launch& launch, std::u16string_view ending) {
    std::u16string path = launch.programFolder + files.Separator() + launch.executableName;
    return path += ending;
}

namespace {
// In a folder for everybody's temporary files nobody's state is safe, and a program's folder that
// cannot be written keeps none.
bool KeepsData(const Files& files, const std::u16string& folder) {
    return files.FolderIsWritable(folder) && !files.FolderIsPublic(folder);
}
} // namespace

std::u16string ResolveDataFilePath(Files& files, const Launch& launch) {
    const std::u16string beside = ProgramFile(files, launch, dataFileEnding);
    const bool ofOther = files.FileExists(beside) && !files.MayReplace(beside);
    if (KeepsData(files, launch.programFolder) && !ofOther) return beside;
    files.CreateFolder(launch.userDataFolder);
    return launch.userDataFolder + files.Separator() + launch.executableName + dataFileEnding;
}

void TakeOverDataFile(MainForm& form) {
    Files& files = *form.ports.files;
    const std::u16string beside = ProgramFile(files, form.ports.launch, dataFileEnding);
    if (form.DataFilePath == beside || files.FileExists(form.DataFilePath)) return;
    if (KeepsData(files, form.ports.launch.programFolder)) {
        form.besideOfOther = beside; // another user's own state, and no beginning for this one's
        return;
    }
    std::string bytes;
    if (files.Read(beside, maxDataFileSize, bytes) == ReadStatus::Ok)
        files.Replace(form.DataFilePath, bytes, false);
}

std::unique_ptr<IniFile> OpenDataFile(MainForm& form) {
    return std::make_unique<IniFile>(*form.ports.files, form.DataFilePath,
                                     form.ports.locale->AnsiCodePage(), DecodePage);
}

namespace {
constexpr int attempts = 10, betweenAttempts = 100; // milliseconds; together a second
}

void ReadDataFile(MainForm& form) {
    IniFile& file = *form.dataFile;
    for (int i = 1; i < attempts && file.IsUnread(); ++i) {
        form.ports.clock->Wait(betweenAttempts);
        if (file.TryRead() == ReadStatus::NotAFile) return; // no wait makes one of it
    }
}

void WriteDataFileAtLast(MainForm& form) {
    for (int i = 1; i < attempts && !form.dataFile->Flush(); ++i)
        form.ports.clock->Wait(betweenAttempts);
    if (!form.dataFile->Flush()) TellDataFileTrouble(form, form.dataFile->Trouble());
}

void TellStartTrouble(MainForm& form) {
    if (!form.besideOfOther.empty()) TellOtherUsersDataFile(form, form.besideOfOther);
    const IniTrouble trouble = form.dataFile->Trouble();
    const bool unwritable =
        trouble == IniTrouble::None && !form.ports.files->MayReplace(form.DataFilePath);
    TellDataFileTrouble(form, unwritable ? IniTrouble::NotWritten : trouble);
}

void WriteScheme(IniFile& file) {
    // The last fields stand here in an order of their own; records keep the size before the title.
    const std::u16string names =
        u"Path,Access,Filter,FontName,FontSize,Charset,Bold,Italic,Underline,"
        u"Strikethru,Wrap,Align,ForeColor,BackColor,LastPos,Title,Size,Marks";
    const auto comma = names.find(u',');
    const std::u16string rest = Replace(names.substr(comma + 1), u",", u">=<");
    IniWriteString(file, u"Scheme", u"<" + names.substr(0, comma) + u">", u"<" + rest + u">");
    IniWriteString(file, u"Scheme", u"<Marks>:", u"<SelStart>,<SelLength>|...");
}

int RegWriteValue(Registry& registry, const std::u16string& key, const std::u16string& name,
                  const std::u16string& text) {
    return registry.Read(key, name) == text ? 0 : registry.Write(key, name, text);
}
