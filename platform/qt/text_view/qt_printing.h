// Printing by the system's dialog, with word of how far it is and a way to cancel.
#pragma once

#include "platform/text_view.h"
#include "view/picture_store.h"
#include "view/print_flow.h"

#include <functional>

class QWidget;

using PrintJob =
    std::function<PrintEnd(LineLayout&, PictureStore&, PrintDevice&, const PageRanges&)>;

// `window` takes no input meanwhile.
PrintAnswer PrintByDialog(QWidget* window, const std::u16string& title, const PrintJob& print);
