// The Help menu.
#pragma once

#include <string>

struct MainForm;

void mHelpTopics_Click(MainForm&, int);
void mHelpUpdate_Click(MainForm&, int);
void mHelpWeb_Click(MainForm&, int);
void mHelpMail_Click(MainForm&, int);
void mHelpAbout_Click(MainForm&, int);

// Opens the help at the topic with this id, at its index when no topic has it. The user is told of
// a help file that is missing or damaged.
void OpenHelp(MainForm&, const std::string& topic);
