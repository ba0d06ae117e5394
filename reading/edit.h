// The Edit menu: copying, selecting all, and the selection as the book's caption.
#pragma once

struct MainForm;

void mEdit_Click(MainForm&, int); // the Edit menu opens
void mEditCopy_Click(MainForm&, int);
void mEditCopyRTF_Click(MainForm&, int); // the RTF source, as Unicode text
void mEditAll_Click(MainForm&, int);
void mEditTitle_Click(MainForm&, int);

// The commands that apply to the text under the pointer, as a context menu.
void rtMain_ContextMenu(MainForm&);
