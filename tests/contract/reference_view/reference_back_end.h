// What the comparison needs of a back end besides its line layout. Defined once in each test
// program.
#pragma once

#include "platform/canvas.h"
#include "view/geometry.h"

#include <memory>

// Pixels that letters are painted on.
class PanePicture {
  public:
    virtual ~PanePicture() = default;
    virtual Canvas& Target() = 0;
    virtual Color At(int x, int y) const = 0;
};

// White.
std::unique_ptr<PanePicture> MakePanePicture(Size size);

// False: a line that was drawn may place its characters up to a pixel beside where they were, and
// those behind a soft hyphen anywhere.
bool KeepsPlacesWhenDrawn();
