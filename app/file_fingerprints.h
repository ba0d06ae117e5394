// What the text of a file is recognised by, wherever the file is.
#pragma once

#include "books/book_file.h"
#include "books/book_script.h"
#include "reading/text_fingerprint.h"

#include <map>
#include <optional>
#include <utility>

class BookRecord;
struct BookSettings;
struct MainForm;

// Of the texts of one file, in each charset that one of the books is read in. It is read when there
// is something to compare it with.
class FileFingerprints {
  public:
    FileFingerprints(const MainForm&, BookFile&); // both must outlive this object

    std::optional<TextFingerprint> Of(ChosenCharset chosen);

  private:
    TextFingerprint Compute(const BookContent& content, ChosenCharset chosen) const;

    const Files& files_;
    std::uint64_t maxPlainText_;
    int ansiCodePage_;
    BookFile& file_;
    std::map<std::pair<int, bool>, TextFingerprint> known_; // by the reader's choice
};

// Keeps what the file of the shown page is recognised by.
void KeepPageFile(MainForm&, const BookRecord&, const BookSettings&);
