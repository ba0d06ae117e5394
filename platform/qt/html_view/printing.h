// Printing of a page, through the system's dialog.
#pragma once

class QWebEngineView;

void PrintPage(QWebEngineView&); // returns at once
