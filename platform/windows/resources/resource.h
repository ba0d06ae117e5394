// The numbers of the program's resources.
#pragma once

#define IDI_PROGRAM 1 // the first icon is the one that the desktop shows for the program
