#include "platform/qt/text_view/line_layout/installed_families.h"

#include <QFont>
#include <QFontDatabase>
#include <QFontInfo>
#include <QGuiApplication>
#include <QSet>

namespace {
QSet<QString> Installed() {
    QSet<QString> families;
    for (const QString& family : QFontDatabase::families())
        families.insert(family.toCaseFolded());
    return families;
}

// Families made to take the same room as widespread ones of another maker. Fontconfig puts them in
// their place, as it puts some other one in the place of every family that is not there.
struct Substitute {
    const char* name;
    const char* families[2];
};
constexpr Substitute substitutes[] = {
    {"arial", {"liberation sans", "arimo"}},
    {"times new roman", {"liberation serif", "tinos"}},
    {"courier new", {"liberation mono", "cousine"}},
    {"calibri", {"carlito", ""}},
    {"cambria", {"caladea", ""}},
    {"georgia", {"gelasio", ""}},
};

bool HasSubstitute(const QString& family) {
    for (const Substitute& each : substitutes) {
        if (family != QLatin1String(each.name)) continue;
        const QString found = QFontInfo(QFont(family)).family().toCaseFolded();
        return found == QLatin1String(each.families[0]) || found == QLatin1String(each.families[1]);
    }
    return false;
}

QFont::StyleHint HintOf(GenericFamily kind) {
    switch (kind) {
    case GenericFamily::Serif: return QFont::Serif;
    case GenericFamily::SansSerif: return QFont::SansSerif;
    case GenericFamily::Monospace: return QFont::Monospace;
    case GenericFamily::Cursive: return QFont::Cursive;
    case GenericFamily::Fantasy: return QFont::Fantasy;
    case GenericFamily::SystemUi: break;
    }
    return QFont::AnyStyle;
}
} // namespace

bool IsInstalledFamily(const QString& family) {
    static const QSet<QString> installed = Installed();
    const QString folded = family.toCaseFolded();
    return installed.contains(folded) || HasSubstitute(folded);
}

// The families that Qt's own browser engine starts with, too.
QString FamilyOfKind(GenericFamily kind) {
    if (kind == GenericFamily::SystemUi) return QFontInfo(QGuiApplication::font()).family();
    QFont font;
    font.setStyleHint(HintOf(kind));
    return QFontInfo(QFont(font.defaultFamily())).family();
}
