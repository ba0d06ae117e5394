// Reads the font configuration while the window system is being connected.
#pragma once

#include <thread>

// Fontconfig parses some fifty files before the first letter can be drawn, and the connection to
// the window system mostly waits: side by side they take the time of one. Made before QApplication;
// call `Finish` after it, before anything asks for a font.
class FontSetup {
  public:
    FontSetup();
    ~FontSetup() { Finish(); }
    FontSetup(const FontSetup&) = delete;
    FontSetup& operator=(const FontSetup&) = delete;

    void Finish();

  private:
    std::thread reader_;
};
