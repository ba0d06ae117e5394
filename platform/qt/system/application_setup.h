// What main() does before it creates the application object.
#pragma once

#include <thread>

// Plug-ins and qt.conf are not searched beside the program: in a folder of downloads anybody's
// files may be there. (platform/qt/qt.conf, a resource, takes precedence over a file of that name.)
void ExcludeProgramFolderFromPluginPaths();

// Loads the font configuration in a thread. Fontconfig parses some fifty files before the first
// text can be drawn, and connecting to the window system is mostly waiting. Construct it before
// QApplication; call `Finish` after it, before anything needs a font.
class FontconfigLoader {
  public:
    FontconfigLoader();
    ~FontconfigLoader() { Finish(); }
    FontconfigLoader(const FontconfigLoader&) = delete;
    FontconfigLoader& operator=(const FontconfigLoader&) = delete;

    void Finish();

  private:
    std::thread thread_;
};
