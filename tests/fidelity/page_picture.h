// What of a page is seen, as a picture.
#pragma once

#include "tests/fidelity/laid_out_page.h"

#include <QImage>

QImage PictureOf(LaidOutPage& page, int top, int height);
