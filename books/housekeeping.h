// Commands of the File menu that look after the list, and exit.
#pragma once

struct MainForm;

void mFileNonFound_Click(MainForm&, int);         // drops every record whose file is missing
void mFileRemoveList_Click(MainForm&, int index); // drops one record
void mFileEdit_Click(MainForm&, int);             // opens the shown book in its editor
void mFileExit_Click(MainForm&, int);
