#include "platform/qt/dialogs/file_filter.h"

#include "platform/qt/base/qt_text.h"

#include <algorithm>

namespace {

QString CaseInsensitivePattern(const QString& pattern) {
    QString result;
    for (const QChar character : pattern) {
        const QChar lower = character.toLower(), upper = character.toUpper();
        if (lower == upper)
            result += character;
        else
            result += QLatin1Char('[') + lower + upper + QLatin1Char(']');
    }
    return result;
}

} // namespace

QStringList QtNameFilters(const OpenFileRequest& request) {
    const QStringList parts = ToQt(request.filter).split(QLatin1Char('|'));
    QStringList filters;
    for (qsizetype i = 0; i + 1 < parts.size(); i += 2) {
        const auto type = static_cast<std::size_t>(i / 2);
        const bool hasList = type < request.listed.size() && !request.listed[type].empty();
        const QString list = hasList ? ToQt(request.listed[type]) : parts[i + 1];
        QStringList patterns = list.split(QLatin1Char(';'), Qt::SkipEmptyParts);
        for (QString& pattern : patterns) {
            pattern = pattern.trimmed();
            // "*.*" must match names without a dot, too.
            pattern = pattern == QLatin1String("*.*") ? QStringLiteral("*")
                                                      : CaseInsensitivePattern(pattern);
        }
        filters += QStringLiteral("%1 (%2)").arg(parts[i], patterns.join(QLatin1Char(' ')));
    }
    return filters;
}

int NameFilterNumber(const QStringList& filters, const QString& selected) {
    const auto isSelected = [&selected](const QString& filter) {
        const QString name = filter.left(filter.lastIndexOf(QLatin1String(" (")));
        return filter == selected || name == selected.trimmed();
    };
    const auto found = std::ranges::find_if(filters, isSelected);
    return static_cast<int>(std::min(found - filters.begin() + 1, filters.size()));
}
