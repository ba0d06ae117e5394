// Pictures that a document has in files of their own.
#pragma once

#include "formats/document.h"

#include <functional>

// By the first bytes; Other when it is none that can be shown.
PictureFormat FormatOfPicture(std::string_view bytes);

// Reads the pictures that are named: `read` gives a file's bytes, "" when it is not to be shown.
// Asks once for each name.
void ReadPictureFiles(Document&, const std::function<std::string(const std::u16string&)>& read);
