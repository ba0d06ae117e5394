// The Options menu.
#pragma once

struct MainForm;

void mOptionsTitle_Click(MainForm&, int index); // 0: the file's name in the title, 1: the caption
void mOptionsFileColor_Click(MainForm&, int);
void mOptionsEditor_Click(MainForm&, int index); // asks for the editor of this kind of book

void LoadAllEditors(MainForm&); // from the data file
