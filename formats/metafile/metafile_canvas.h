// Where the records of a metafile draw: a device context that collects commands.
#pragma once

#include "formats/metafile/metafile_curves.h"

#include <algorithm>
#include <variant>

enum class MetaContour : std::uint8_t { Open, Closed };
struct MetaPen {
    bool isVisible = true, isDashed = false;
    double width = 0; // logical units
    Color color = 0;
};
struct MetaBrush {
    bool isVisible = true;
    Color color = 0xFFFFFF;
};
struct MetaFont {
    std::u16string name;
    double height = 0; // of the em, logical units; 0 the usual one
    double degrees = 0;
    int charset = 1;
    bool isBold = false, isItalic = false, isUnderlined = false, isStruckOut = false;
};
using MetaObject = std::variant<std::monostate, MetaPen, MetaBrush, MetaFont>;

// x' = xx * x + yx * y + dx, y' = xy * x + yy * y + dy
struct MetaTransform {
    double xx = 1, xy = 0, yx = 0, yy = 1, dx = 0, dy = 0;
    MetaPoint Apply(MetaPoint p) const {
        return {xx * p.x + yx * p.y + dx, xy * p.x + yy * p.y + dy};
    }
};
MetaTransform Combined(const MetaTransform& first, const MetaTransform& second);

struct MetaState {
    MetaPen pen;
    MetaBrush brush;
    MetaFont font;
    Color textColor = 0, background = 0xFFFFFF;
    bool isOpaque = true, isWinding = false;
    unsigned textAlign = 0; // TA_ flags
    MetaPoint position;     // logical
    MetaTransform world;
    MetaPoint windowOrigin, windowExtent{1, 1}, viewportOrigin, viewportExtent{1, 1};
    MetaRect clip;
};

enum class MetaPaint { Stroke, Fill, FillAndStroke };

class MetaCanvas {
  public:
    // The picture's place in what viewports are measured in.
    explicit MetaCanvas(const MetaBox& frame);

    MetaState& State() { return state_; }
    void Save();
    void Restore(int which); // counted back from the last, which is -1

    // Of WMF: in the first free place. Of EMF: with its number; stock objects have numbers too.
    void AddObject(MetaObject object);
    void SetObject(std::uint32_t number, MetaObject object);
    void DeleteObject(std::uint32_t number);
    void SelectObject(std::uint32_t number);

    // All places are logical.
    void MoveTo(MetaPoint place);
    void LineTo(MetaPoint place) { LinesTo({place}); }
    void LinesTo(MetaPoints points); // from the current position
    void Lines(std::vector<MetaPoints> contours) { Shape(std::move(contours), MetaContour::Open); }
    void Areas(std::vector<MetaPoints> contours) {
        Shape(std::move(contours), MetaContour::Closed);
    }
    void Text(MetaPoint place, std::u16string text, double width);
    void Image(const MetaBox& place, MetaImage image, std::uint32_t rasterOperation);
    void Fill(const MetaBox& place, std::uint32_t rasterOperation); // PatBlt
    void Pixel(MetaPoint place, Color color);
    void ClipTo(const MetaBox& place);
    void ClipToAll() { state_.clip = {}; }

    void BeginPath();
    void EndPath() { isInPath_ = false; }
    void CloseFigure();
    void PaintPath(MetaPaint paint);

    // How many pixels of bitmaps may still be read; reading takes them.
    std::size_t PixelsLeft() const { return pixelsLeft_; }
    void TakePixels(std::size_t count) { pixelsLeft_ -= std::min(count, pixelsLeft_); }
    const MetaBox& Bounds() const { return bounds_; } // of all places in use, in shares
    Metafile Release() { return std::move(file_); }

  private:
    MetaPoint Map(MetaPoint logical) const;
    MetaPoint Placed(MetaPoint logical); // mapped, and counted for the bounds
    MetaPoint MappedVector(MetaPoint logical) const;
    double MappedHeight(double logical) const;
    void Shape(std::vector<MetaPoints> contours, MetaContour end);
    void AddShape(const std::vector<MetaPoints>& contours, MetaContour end, MetaPaint paint);
    double CoverOf(const MetaBox& box) const; // how much of the picture may be painted over
    bool AddCommand(MetaCommand::Kind kind, std::size_t index, double cover);

    MetaBox frame_;
    MetaState state_;
    std::vector<MetaState> saved_;
    std::vector<MetaObject> objects_;
    bool isInPath_ = false;
    std::vector<MetaPoints> path_;
    Metafile file_;
    MetaBox bounds_{1e300, 1e300, -1e300, -1e300};
    std::size_t pointsLeft_, textLeft_, pixelsLeft_;
    double coverLeft_;
};
