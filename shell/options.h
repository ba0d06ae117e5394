// The options: title mode, colours of rich-text books, external editors.
#pragma once

#include <string>

struct MainForm;

// Makes `path` the editor of kind `index`, and shows its description in the item's caption.
void SetEditorItem(MainForm&, int index, const std::u16string& path);

void LoadEditors(MainForm&);        // of all profiles, from the data file
void LoadProfileOptions(MainForm&); // title mode and colours of the current profile

void mOptionsTitle_Click(MainForm&, int index);
void mOptionsFileColor_Click(MainForm&, int);
void mOptionsEditor_Click(MainForm&, int index);
