// Links in HTML books, and the way back.
#pragma once

#include <string>

struct MainForm;
struct PageTop;

// A link that leads out of the page was followed; `path` is "" for an address that is no local
// file.
void wbMain_Link(MainForm&, const std::u16string& url, const std::u16string& path);
void wbMain_Jump(MainForm&, const PageTop& from); // a link within the page was followed

void GoBackAlongLinks(MainForm&); // to where the last link was followed; nothing without one
