#include "platform/qt/file_filter.h"

namespace {

QString InAnyCase(const QString& pattern) {
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

QStringList QtNameFilters(const QString& filter) {
    const QStringList parts = filter.split(QLatin1Char('|'));
    QStringList filters;
    for (qsizetype i = 0; i + 1 < parts.size(); i += 2) {
        QStringList patterns = parts[i + 1].split(QLatin1Char(';'), Qt::SkipEmptyParts);
        for (QString& pattern : patterns) {
            pattern = pattern.trimmed();
            // Names without a dot count as files of any kind, too.
            pattern = pattern == QLatin1String("*.*") ? QStringLiteral("*") : InAnyCase(pattern);
        }
        filters += QStringLiteral("%1 (%2)").arg(parts[i], patterns.join(QLatin1Char(' ')));
    }
    return filters;
}
