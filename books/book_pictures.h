// Pictures that a book has in files beside it.
#pragma once

#include "platform/files.h"

// The bytes of a file that lies in the book's folder or below it, and nowhere else: a book must not
// read what is its reader's alone, nor tell another computer that it is read. "" for any other.
std::string ReadBookPicture(const Files&, const std::u16string& bookPath,
                            const std::u16string& name);
