#include "platform/qt/text_view/qt_printing.h"

#include "platform/qt/base/qt_text.h"
#include "platform/qt/print_dialog/print_target.h"
#include "platform/qt/text_view/line_layout/qt_canvas.h"
#include "platform/qt/text_view/line_layout/qt_line_layout.h"
#include "platform/qt/text_view/pictures/qt_pictures.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QFile>
#include <QLibrary>
#include <QProgressDialog>

namespace {

AskPrinter* LoadPrintDialog() {
    const QString folder = QCoreApplication::applicationDirPath();
    for (const char* location : {"/norvaset-print.so", "/../lib/norvaset/norvaset-print.so"}) {
        const QString path = folder + QLatin1String(location);
        if (!QFile::exists(path)) continue;
        if (const auto ask = QLibrary::resolve(path, askPrinterName))
            return reinterpret_cast<AskPrinter*>(ask);
    }
    return nullptr;
}

// Named as a file is: the dialog proposes it as one.
QString DocumentName(const std::u16string& title) {
    constexpr int maxLength = 60; // UTF-16 units
    QString name = ToQt(title).simplified().left(maxLength).trimmed();
    return name.replace(QLatin1Char('/'), QLatin1Char(' '));
}

class QtPrintDevice final : public PrintDevice {
  public:
    QtPrintDevice(QPagedPaintDevice& device, QWidget* owner)
        : device_(device),
          progress_(QCoreApplication::translate("Print", "Printing..."),
                    QCoreApplication::translate("Print", "Cancel"), 0, 100, owner) {
        progress_.setWindowTitle(QCoreApplication::translate("Print", "Print"));
        progress_.setWindowModality(Qt::WindowModal); // nothing else is done meanwhile
        progress_.setAutoReset(false);
        progress_.setMinimumDuration(0);
        progress_.setValue(0);
        sinceEvents_.start();
    }

    bool Start() { return painter_.begin(&device_); }
    bool Finish() { return painter_.end(); }

    double Dpi() const override { return device_.logicalDpiX(); }
    Size Page() const override { return {device_.width(), device_.height()}; }
    Canvas* BeginPage() override {
        if (std::exchange(begun_, true) && !device_.newPage()) return nullptr;
        return &canvas_;
    }
    void ClipTo(const Rect& box) override { painter_.setClipRect(ToQRect(box)); }
    bool EndPage() override { return painter_.isActive(); }
    bool OnProgress(int percent) override {
        constexpr int interval = 50; // milliseconds
        if (sinceEvents_.elapsed() < interval) return !progress_.wasCanceled();
        progress_.setValue(percent);
        QCoreApplication::processEvents();
        sinceEvents_.restart();
        return !progress_.wasCanceled();
    }

  private:
    QPagedPaintDevice& device_;
    QProgressDialog progress_;
    QPainter painter_;
    QtCanvas canvas_{painter_};
    QElapsedTimer sinceEvents_;
    bool begun_ = false;
};

PrintAnswer AnswerOf(PrintEnd end, const QString& file) {
    using Result = PrintAnswer::Result;
    // A part of a book in a file is not what was asked for.
    if (end != PrintEnd::Done && !file.isEmpty()) QFile::remove(file);
    if (end == PrintEnd::GivenUp) return {Result::Cancelled, {}};
    return {end == PrintEnd::Done ? Result::Printed : Result::Failed, FromQt(file)};
}

} // namespace

PrintAnswer PrintByDialog(QWidget* window, const std::u16string& title, const PrintJob& print) {
    AskPrinter* const ask = LoadPrintDialog();
    if (!ask) return {PrintAnswer::Result::Failed, u"norvaset-print.so"};
    PrintTarget target;
    ask(window, DocumentName(title), target);
    if (!target.device) return {};
    const QPageRanges ranges = target.device->pageRanges();
    PageRanges pageRanges;
    if (!ranges.isEmpty()) {
        pageRanges.contains = [ranges](int page) { return ranges.contains(page); };
        pageRanges.last = ranges.lastPage();
    }
    QtLineLayout lines;
    QtPictures pictures;
    QtPrintDevice device(*target.device, window);
    if (!device.Start()) return AnswerOf(PrintEnd::Failed, {}); // the file may be another's
    PrintEnd end = print(lines, pictures, device, pageRanges);
    if (!device.Finish() && end == PrintEnd::Done) end = PrintEnd::Failed;
    return AnswerOf(end, target.file);
}
