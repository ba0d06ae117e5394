// The charset of the shown book, when that is plain text.
#pragma once

#include "books/book_script.h"
#include "formats/plain/plain_text_readings.h"
#include "formats/plain/plain_text_source.h"

#include <memory>
#include <vector>

struct MainForm;

std::shared_ptr<PlainTextSource> DecodeBook(std::shared_ptr<const FileReader> file, ChosenCharset,
                                            int ansiCodePage);

// What it can be read in, the present charset among them. Empty for rich text, pages, texts whose
// bytes leave nothing to choose, and files that cannot be read any more.
std::vector<CharsetReading> ReadingsOfBook(const MainForm&);
int PresentCodePage(const MainForm&); // of those, utf8Page for UTF-8

// Reads it again in that charset, or in the one of the view font's script that its bytes suggest,
// and keeps that as the reader's choice. Top line, caret and bookmarks stay on the same text.
// The script of a font changes no book in Unicode or rich text.
void ReadInCodePage(MainForm&, int codePage);
void ReadInScriptOfFont(MainForm&);
