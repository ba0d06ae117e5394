#include "platform/qt/html_view/printing.h"

#include <QPrintDialog>
#include <QPrinter>
#include <QWebEngineView>

#include <memory>

void PrintPage(QWebEngineView& view) {
    const auto printer = std::make_shared<QPrinter>(QPrinter::HighResolution);
    printer->setDocName(view.title());
    auto* dialog = new QPrintDialog(printer.get(), &view);
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    QObject::connect(dialog, qOverload<>(&QDialog::accepted), &view, [&view, printer] {
        view.print(printer.get());
        // The printer has to live until the engine is done with it.
        QObject::connect(
            &view, &QWebEngineView::printFinished, &view, [printer](bool) {},
            Qt::SingleShotConnection);
    });
    dialog->open();
}
