// The View menu: how the shown book looks. Every change is kept with the book.
#pragma once

struct MainForm;

void mView_Click(MainForm&, int); // the menu opens
void mViewRefresh_Click(MainForm&, int);
void mViewBackground_Click(MainForm&, int);
void mViewFont_Click(MainForm&, int);
void mViewFontSize_Click(MainForm&, int index); // 0 one point larger, 1 one point smaller
void mViewAlign_Click(MainForm&, int index);
void mViewWordWrap_Click(MainForm&, int);
// Of the context menu.
void mViewColumn_Click(MainForm&, int); // for all books of the profile
void mViewUnwrap_Click(MainForm&, int);
