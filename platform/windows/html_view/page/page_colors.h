// A page's own colours.
#pragma once

#include "platform/html_view.h"
#include "platform/windows/html_view/page/page_document.h"

PageColors ColorsOf(const PageDocument&); // black on white where the engine returns none
