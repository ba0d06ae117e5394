#include "view/readable_pane.h"

const ReadingObjects& ReadablePane::Objects() {
    static const ReadingObjects none;
    return none;
}
