// The system's print service.
#pragma once

#include <QString>
#include <QStringList>

class QPrinter;

// A document name for a title; the print dialog proposes it as file name. "" for none.
QString DocumentName(const QString& title);

// Sends a PDF from its standard input to the print service.
constexpr char printProgram[] = "lp";
// For the settings of the print dialog. Page ranges are left out: the PDF has only those pages.
QStringList PrintArguments(const QPrinter&);
