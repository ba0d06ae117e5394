// What the system's print dialog answers.
#pragma once

#include <QPagedPaintDevice>
#include <QString>

#include <memory>

class QWidget;

struct PrintTarget {
    std::unique_ptr<QPagedPaintDevice> device; // null when the dialog was cancelled
    QString file;                              // that it prints into; "" for a printer
};

// In a module that is loaded when it is first asked for: Qt's printing would be one library more to
// load at each start. Its function has this type and name.
using AskPrinter = void(QWidget* owner, const QString& documentName, PrintTarget&);
constexpr char askPrinterName[] = "NorvasetAskPrinter";
