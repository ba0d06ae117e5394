// The File menu.
#pragma once

struct MainForm;

void mFile_Click(MainForm&, int); // the menu opens
void mFileOpen_Click(MainForm&, int);
void mFileEdit_Click(MainForm&, int);             // opens the shown book in its editor
void mFileNonFound_Click(MainForm&, int);         // drops every record whose file is missing
void mFileRemoveList_Click(MainForm&, int index); // drops one record
void mFileList_Click(MainForm&, int index);       // shows the book of a history item
void mFileExit_Click(MainForm&, int);
