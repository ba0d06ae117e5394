// Which pages are shown as browsers of old showed them.
#pragma once

#include "formats/html/html_token.h"

HtmlQuirks QuirksOf(const HtmlDoctypeToken& doctype);
