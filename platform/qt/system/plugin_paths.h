// Where Qt looks for plug-ins and settings of its own.
#pragma once

// Before the application object is made: not beside the program, where in a folder of downloads
// anybody's files may be. (platform/qt/qt.conf, in the program itself, keeps Qt from a file of that
// name there.)
void KeepPluginsFromProgramFolder();
