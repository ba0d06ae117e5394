// What assistive technology is told of those parts of the windows that Qt does not know.
#pragma once

// To be called once the application object is there; again does nothing.
void InstallAccessibleParts();
