// What later records are drawn with: units, colours, modes, the clip.
#include "formats/metafile/emf_records.h"

namespace {
class StateReader {
  public:
    StateReader(MetaCanvas& canvas, const MetaBytes& file, const EmfRecord& record)
        : canvas_(canvas), file_(file), record_(record) {}

    bool Read(EmfType type) {
        MetaState& state = canvas_.State();
        using enum EmfType;
        switch (type) {
        case SetWindowExt: state.windowExtent = record_.PointAt(8); return true;
        case SetWindowOrg: state.windowOrigin = record_.PointAt(8); return true;
        case SetViewportExt: state.viewportExtent = record_.PointAt(8); return true;
        case SetViewportOrg: state.viewportOrigin = record_.PointAt(8); return true;
        case ScaleViewportExt: Scale(state.viewportExtent); return true;
        case ScaleWindowExt: Scale(state.windowExtent); return true;
        case SetMapMode: SetScale(record_.U32(8)); return true;
        case SetBkMode: state.isOpaque = record_.U32(8) == 2; return true;
        case SetPolyFillMode: state.isWinding = record_.U32(8) == 2; return true;
        case SetTextAlign: state.textAlign = record_.U32(8); return true;
        case SetTextColor: state.textColor = record_.ColorAt(8); return true;
        case SetBkColor: state.background = record_.ColorAt(8); return true;
        case SaveDc: canvas_.Save(); return true;
        case RestoreDc: canvas_.Restore(record_.S32(8)); return true;
        case SetWorldTransform: state.world = TransformAt(8); return true;
        case ModifyWorldTransform: ModifyWorld(record_.U32(32)); return true;
        case IntersectClipRect: canvas_.ClipTo(record_.BoxAt(8)); return true;
        case ExtSelectClipRgn:
        case SelectClipPath: canvas_.ClipToAll(); return true;
        default: return false;
        }
    }

  private:
    void Scale(MetaPoint& extent) const { // x by x, y by y
        if (record_.Number(12) != 0) extent.x *= record_.Number(8) / record_.Number(12);
        if (record_.Number(20) != 0) extent.y *= record_.Number(16) / record_.Number(20);
    }

    // Units of the fixed modes in pixels of the device, y upward.
    void SetScale(std::uint32_t mode) {
        constexpr std::uint32_t text = 1, fixedModes = 6;
        constexpr double perInch[] = {0, 0, 254, 2540, 100, 1000, 1440};
        MetaState& state = canvas_.State();
        if (mode == text) state.windowExtent = state.viewportExtent = {1, 1};
        if (mode <= text || mode > fixedModes) return;
        const double width = file_.S32(80), height = file_.S32(84); // millimetres
        if (width <= 0 || height <= 0) return;
        state.windowExtent = {perInch[mode], perInch[mode]};
        state.viewportExtent = {file_.S32(72) / width * 25.4, -(file_.S32(76) / height * 25.4)};
    }

    MetaTransform TransformAt(std::size_t at) const {
        return {record_.F32(at),      record_.F32(at + 4),  record_.F32(at + 8),
                record_.F32(at + 12), record_.F32(at + 16), record_.F32(at + 20)};
    }

    void ModifyWorld(std::uint32_t mode) {
        MetaTransform& world = canvas_.State().world;
        switch (mode) {
        case 1: world = {}; return;
        case 2: world = Combined(TransformAt(8), world); return;
        case 3: world = Combined(world, TransformAt(8)); return;
        case 4: world = TransformAt(8); return;
        default: return;
        }
    }

    MetaCanvas& canvas_;
    const MetaBytes& file_;
    const EmfRecord& record_;
};
} // namespace

bool ReadEmfState(MetaCanvas& canvas, const MetaBytes& file, const EmfRecord& record,
                  EmfType type) {
    return StateReader(canvas, file, record).Read(type);
}
