// Settings that the engine takes from the process and not from its host.
#pragma once

#include <string>

bool IsEngineInstalled(); // judging by its DLL and registration

// Enables the feature controls that restrict local pages, for this process only.
void LockDownEngine();

// Sets FEATURE_BROWSER_EMULATION for this program in the user's registry, the only place for it,
// while this lives. An existing value is left alone.
class DocumentMode {
  public:
    DocumentMode();
    ~DocumentMode();
    DocumentMode(const DocumentMode&) = delete;
    DocumentMode& operator=(const DocumentMode&) = delete;

  private:
    std::wstring program_; // "" when there is nothing to remove
};
