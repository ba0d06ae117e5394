// A book of the history list that turns out to be of another kind.
#pragma once

struct MainForm;

// Gives history item `index` this kind and writes its record. A place, marks and a size of the text
// view mean nothing in the HTML view, and the other way round: what the record has of them is kept
// aside, for the day when the kind is changed back, and what was kept aside comes into the record.
// The shown book is loaded anew when its item is next clicked.
void ChangeKind(MainForm&, int index, int kind);
