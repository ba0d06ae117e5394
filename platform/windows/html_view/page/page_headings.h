// The headings of a page: its elements h1 to h6.
#pragma once

#include "common/heading.h"
#include "platform/windows/html_view/page/page_document.h"

std::vector<Heading> HeadingsOf(const PageDocument&);
