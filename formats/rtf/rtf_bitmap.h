// Bitmaps of rich text (RTF 1.9.1, \dibitmap), which has them without the header of a file.
#pragma once

#include <string>
#include <string_view>

// A metafile (MS-WMF) of one record that draws the device-independent bitmap; "" when it is none.
std::string MetafileOfBitmap(std::string_view bitmap);
