// The system's print service.
#pragma once

#include <QString>
#include <QStringList>

class QPrinter;

// A title as the name of a document: the dialog makes the name of a file of it. "" for none.
QString DocumentName(const QString& title);

// The program that hands a PDF from its standard input to the print service.
constexpr char printProgram[] = "lp";
// Its arguments for what was chosen in the print dialog, pages left out: those are in the PDF.
QStringList PrintArguments(const QPrinter&);
