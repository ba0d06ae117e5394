// Accessible roles of widgets that Qt reports with an unsuitable one.
#pragma once

// Call it once the application object exists; further calls do nothing.
void InstallAccessibleRoles();
