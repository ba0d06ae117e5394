// Letters are not there, only what is filled.
#include "platform/none/none_canvas.h"
#include "tests/contract/reference_view/reference_back_end.h"

#include <vector>

namespace {
constexpr Color white = 0xFFFFFF;

class NonePicture : public PanePicture {
  public:
    explicit NonePicture(Size size)
        : size_(size), pixels_(std::size_t(size.width) * std::size_t(size.height), white) {}
    Canvas& Target() override { return canvas_; }
    Color At(int x, int y) const override {
        while (painted_ < canvas_.drawings.size())
            PaintNext();
        return pixels_[Index(x, y)];
    }

  private:
    std::size_t Index(int x, int y) const {
        return std::size_t(y) * std::size_t(size_.width) + std::size_t(x);
    }
    void PaintNext() const {
        const NoneDrawing& drawing = canvas_.drawings[painted_++];
        if (drawing.kind != NoneDrawing::Kind::Fill) return;
        const Rect& box = drawing.rect;
        for (int y = std::max(0, box.top); y < std::min(Bottom(box), size_.height); ++y)
            for (int x = std::max(0, box.left); x < std::min(Right(box), size_.width); ++x)
                pixels_[Index(x, y)] = drawing.color;
    }

    Size size_;
    NoneCanvas canvas_;
    mutable std::vector<Color> pixels_;
    mutable std::size_t painted_ = 0; // of the drawings
};
} // namespace

std::unique_ptr<PanePicture> MakePanePicture(Size size) {
    return std::make_unique<NonePicture>(size);
}

bool HasWholePixels() {
    return true;
}
