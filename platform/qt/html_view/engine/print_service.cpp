#include "platform/qt/html_view/engine/print_service.h"

#include <QPrintEngine>
#include <QPrinter>

namespace {
// The engine property in which QPrintDialog stores options beyond QPrinter's (pages per sheet, odd
// and even pages, options of the printer), as alternating names and values.
constexpr auto serviceOptions = QPrintEngine::PrintEnginePropertyKey(0xfe00);

QString SidesName(const QPrinter& printer) {
    switch (printer.duplex()) {
    case QPrinter::DuplexNone: return QStringLiteral("one-sided");
    case QPrinter::DuplexLongSide: return QStringLiteral("two-sided-long-edge");
    case QPrinter::DuplexShortSide: return QStringLiteral("two-sided-short-edge");
    case QPrinter::DuplexAuto:
        return printer.pageLayout().orientation() == QPageLayout::Portrait
                   ? QStringLiteral("two-sided-long-edge")
                   : QStringLiteral("two-sided-short-edge");
    }
    return {};
}
} // namespace

QString DocumentName(const QString& title) {
    constexpr qsizetype maxNameLength = 60; // UTF-16 units; within every file system's limit
    QString name;
    for (const QChar unit : title) {
        const bool plain = unit.isPrint() && unit != QLatin1Char('/') && unit != QChar(0xFFFD);
        name += plain || unit.isSurrogate() ? unit : QLatin1Char(' ');
    }
    name = name.simplified();
    while (name.startsWith(QLatin1Char('.'))) // a hidden file, or a folder
        name.remove(0, 1);
    name.truncate(maxNameLength);
    if (!name.isEmpty() && name.back().isHighSurrogate()) name.chop(1);
    return name.trimmed();
}

QStringList PrintArguments(const QPrinter& printer) {
    QStringList arguments{QStringLiteral("-s"),
                          QStringLiteral("-d"),
                          printer.printerName(),
                          QStringLiteral("-t"),
                          printer.docName(),
                          QStringLiteral("-n"),
                          QString::number(printer.copyCount())};
    const auto add = [&arguments](const QString& name, const QString& value) {
        arguments << QStringLiteral("-o") << name + QLatin1Char('=') + value;
    };
    add(QStringLiteral("document-format"), QStringLiteral("application/pdf"));
    add(QStringLiteral("media"), printer.pageLayout().pageSize().key());
    add(QStringLiteral("sides"), SidesName(printer));
    add(QStringLiteral("collate"),
        printer.collateCopies() ? QStringLiteral("true") : QStringLiteral("false"));
    if (printer.colorMode() == QPrinter::GrayScale)
        add(QStringLiteral("print-color-mode"), QStringLiteral("monochrome"));
    if (printer.pageOrder() == QPrinter::LastPageFirst)
        add(QStringLiteral("outputorder"), QStringLiteral("reverse"));
    const QStringList options = printer.printEngine()->property(serviceOptions).toStringList();
    for (qsizetype i = 0; i + 1 < options.size(); i += 2)
        add(options[i], options[i + 1]);
    return arguments;
}
