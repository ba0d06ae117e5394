// Paints metafiles.
#pragma once

#include "formats/document.h"

#include <QImage>

// As it is on white paper; null when there is nothing to show.
QImage MetafileImage(const Picture& picture, QSize size);
