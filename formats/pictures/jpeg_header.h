// The header of a JPEG file.
#pragma once

#include "formats/pictures/picture_header.h"

PictureHeader ReadJpegHeader(std::string_view data);
