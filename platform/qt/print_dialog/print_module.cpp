// The module of the print dialog.
#include "platform/qt/print_dialog/print_target.h"

#include <QPrintDialog>
#include <QPrinter>

namespace {
constexpr double margin = 20;    // millimetres; the default
constexpr int dotsPerInch = 300; // letters are drawn as outlines; pictures need no more
} // namespace

extern "C" Q_DECL_EXPORT void NorvasetAskPrinter(QWidget* owner, const QString& documentName,
                                                 PrintTarget& target) {
    auto printer = std::make_unique<QPrinter>(QPrinter::HighResolution);
    printer->setResolution(dotsPerInch);
    printer->setDocName(documentName);
    printer->setPageMargins(QMarginsF(margin, margin, margin, margin), QPageLayout::Millimeter);
    QPrintDialog dialog(printer.get(), owner);
    dialog.setOption(QAbstractPrintDialog::PrintPageRange);
    if (dialog.exec() != QDialog::Accepted) return;
    if (printer->printRange() != QPrinter::PageRange) printer->setPageRanges({});
    target.file = printer->outputFileName();
    target.device = std::move(printer);
}
