// The screen's resolution.
#pragma once

// Pixels per inch, 96 at 100 per cent.
int ScreenDpi();
