// The Edit menu.
#pragma once

struct MainForm;

void mEdit_Click(MainForm&, int); // the menu opens
void mEditCopy_Click(MainForm&, int);
void mEditCopyRTF_Click(MainForm&, int); // the RTF source, as Unicode text
void mEditAll_Click(MainForm&, int);
void mEditFind_Click(MainForm&, int);  // asks for a text and finds it
void mEditNext_Click(MainForm&, int);  // from the end of the selection, once around the end
void mEditTitle_Click(MainForm&, int); // the selection becomes the book's caption
