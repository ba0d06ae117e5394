#include "tests/contract/reference_view/reference_back_end.h"
#include "tests/contract/windows_memory_picture.h"

namespace {
class WindowsPicture : public PanePicture {
  public:
    explicit WindowsPicture(Size size) : picture_(size) {}
    Canvas& Target() override { return picture_.Canvas(); }
    Color At(int x, int y) const override { return picture_.At(x, y); }

  private:
    MemoryPicture picture_;
};
} // namespace

std::unique_ptr<PanePicture> MakePanePicture(Size size) {
    return std::make_unique<WindowsPicture>(size);
}

bool HasWholePixels() {
    return true;
}
