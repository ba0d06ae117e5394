#include "platform/qt/system/qt_version_info.h"

#include "common/text.h"
#include "platform/qt/base/qt_text.h"
#include "platform/qt/system/desktop_entries.h"
#include "product.h"

#include <QFileInfo>

namespace {

std::u16string Text(const char* utf8) {
    return FromQt(QString::fromUtf8(utf8));
}

// What the desktop calls a program that opens files with this ending, if none of its programs says
// its name.
struct Kind {
    const char* mediaType;
    const char* program;
};

Kind KindOf(std::u16string_view ending) {
    if (EqualIgnoringCase(ending, u".rtf")) return {"application/rtf", "Word Processor"};
    if (EqualIgnoringCase(ending, u".htm")) return {"text/html", "Web Browser"};
    return {"text/plain", "Text Editor"};
}

} // namespace

ProgramVersion QtVersionInfo::OwnVersion() const {
    ProgramVersion version;
    version.company = Text(PRODUCT_COMPANY);
    version.title = Text(PRODUCT_TITLE);
    version.description = Text(PRODUCT_DESCRIPTION);
    version.comments = Text(PRODUCT_COMMENTS);
    version.copyright = Text(PRODUCT_COPYRIGHT);
    version.trademarks = Text(PRODUCT_TRADEMARKS);
    version.major = PRODUCT_VERSION_MAJOR;
    version.minor = PRODUCT_VERSION_MINOR;
    version.revision = PRODUCT_VERSION_REVISION;
    return version;
}

std::u16string QtVersionInfo::FileDescription(const std::u16string& program,
                                              std::u16string_view ending) const {
    const Kind kind = KindOf(ending);
    const QString mediaType = QString::fromLatin1(kind.mediaType);
    if (QFileInfo(ToQt(program)).fileName() != QLatin1String("xdg-open"))
        return FromQt(ProgramName(ToQt(program), mediaType));
    const QString name = DefaultProgramName(mediaType);
    return name.isEmpty() ? Text(kind.program) : FromQt(name);
}
