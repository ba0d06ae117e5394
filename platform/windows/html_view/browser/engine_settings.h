// What the engine takes from the process and not from its host.
#pragma once

#include <string>

bool IsEngineInstalled(); // as far as the files and the registry tell

// Switches on the engine's locks for local pages, for this process only.
void LockDownEngine();

// The mode that pages are laid out in, for as long as this lives. The engine has no other place to
// tell it to but a value under the program's name in the user's registry; one that is there already
// stays as it is.
class DocumentMode {
  public:
    DocumentMode();
    ~DocumentMode();
    DocumentMode(const DocumentMode&) = delete;
    DocumentMode& operator=(const DocumentMode&) = delete;

  private:
    std::wstring program_; // "" where there is nothing to take back
};
