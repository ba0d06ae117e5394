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

// False: a caret may be a pixel beside its place, by rounding.
bool HasWholePixels();
