// What main() does before it creates the application object.
#pragma once

#include <string>
#include <thread>

// Plug-ins and qt.conf are not searched beside the program: in a folder of downloads anybody's
// files may be there. (platform/qt/qt.conf, a resource, takes precedence over a file of that name.)
void ExcludeProgramFolderFromPluginPaths();

// What the desktop gave this start to bring a window to the front with: an XDG activation token, or
// a startup notification id, which QApplication takes out of the environment; or "".
std::u16string StartupActivation();

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
