#include "shell/update/version_text.h"

#include "common/text.h"

namespace {

// The digits of `number` after the first of `number + base`, base a power of ten.
std::u16string Padded(int number, int base) {
    return NumberText(number + base).substr(1);
}

} // namespace

std::u16string VersionText(const ProgramVersion& version, VersionFormat format) {
    std::u16string text = NumberText(version.major) + u".";
    if (format == VersionFormat::Full) {
        text += version.minor > 0 ? NumberText(version.minor) : u"00";
        if (version.revision > 0) text += u"." + NumberText(version.revision);
    } else {
        text += Padded(version.minor, 100);
        if (version.revision > 0) text += u"." + Padded(version.revision, 10000);
    }
    return text;
}
