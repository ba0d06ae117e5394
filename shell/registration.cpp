#include "shell/registration.h"

#include "shell/update/version_text.h"

void RegisterProgram(Registry& registry, const ProgramVersion& version,
                     const std::u16string& programFolder) {
    const std::u16string key = u"SOFTWARE\\" + version.company + u"\\" + version.title;
    RegWriteValue(registry, key, u"", programFolder);
    RegWriteValue(registry, key, u"CurrentVersion", VersionText(version, VersionFormat::Padded));
}

int RegWriteValue(Registry& registry, const std::u16string& key, const std::u16string& name,
                  const std::u16string& text) {
    return registry.Read(key, name) == text ? 0 : registry.Write(key, name, text);
}
