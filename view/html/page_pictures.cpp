#include "view/html/page_pictures.h"

#include "formats/html/html_units.h"
#include "formats/pictures/svg_limits.h"
#include "formats/pictures/svg_source.h"

#include <algorithm>
#include <utility>

namespace {
constexpr std::uint64_t maxFileBytes = 32 << 20;
constexpr std::size_t maxKeptBytes = 32 << 20;
// Where the size stands; of a JPEG sometimes after two segments of 64 KB, with a small picture and
// a colour profile.
constexpr std::size_t usualHeaderBytes = 4 << 10, headerBytes = 256 << 10;
constexpr int maxObjects = 256; // of a page, whose files are looked into when it is opened
// Pixels; some tenth of a second.
constexpr std::int64_t maxFrameCost = 8 << 20;
constexpr std::int64_t costOfSvgByte = 16; // in pixels that are decoded meanwhile

// The first address of `srcset`.
std::u16string_view FirstCandidate(std::u16string_view set) {
    while (!set.empty() && (IsHtmlSpace(set.front()) || set.front() == u','))
        set.remove_prefix(1);
    const auto end = std::ranges::find_if(set, IsHtmlSpace);
    std::u16string_view address = set.substr(0, std::size_t(end - set.begin()));
    while (!address.empty() && address.back() == u',')
        address.remove_suffix(1);
    return address;
}

std::u16string_view AddressIn(const HtmlTree& tree, HtmlNodeId image) {
    const HtmlNode& element = tree[image];
    const HtmlName name = element.Is(HtmlName::Object) ? HtmlName::Data : HtmlName::Src;
    if (const HtmlAttribute* address = element.Attribute(name)) return address->Value();
    for (const HtmlAttribute& attribute : element.Attributes())
        if (tree.Name(attribute.name) == u"srcset") return FirstCandidate(attribute.Value());
    return {};
}
} // namespace

PagePictures::PagePictures(const LoadedPage& page, const PageFiles& files, PictureStore& store)
    : page_(page), files_(files), store_(store) {
    store_.Clear();
}

HtmlNodeId PagePictures::PictureOf(const PageBox& box) {
    if (!box.generated) return box.node;
    const auto next = HtmlNodeId(page_.Tree().NodeCount() + 1 + addresses_.size());
    const auto [number, isNew] = numbers_.try_emplace(box.generated->text, next);
    if (isNew) addresses_.push_back(number->first);
    return number->second;
}

bool PagePictures::IsDrawing(HtmlNodeId image) const {
    const HtmlTree& tree = page_.Tree();
    return image <= tree.NodeCount() && tree[image].nameSpace == HtmlNamespace::Svg;
}

std::u16string_view PagePictures::AddressOf(HtmlNodeId image) const {
    const std::size_t nodes = page_.Tree().NodeCount();
    return image > nodes ? addresses_[image - nodes - 1] : AddressIn(page_.Tree(), image);
}

// `start` becomes the bytes that were read.
PictureHeader PagePictures::HeaderOf(std::u16string_view address, std::string& start) const {
    if (address.empty()) return {};
    PictureHeader header;
    for (const std::size_t count : {usualHeaderBytes, headerBytes}) {
        start = files_.ReadStart(address, count);
        header = ReadPictureHeader(start);
        if (header.format != PictureFormat::Other || start.size() < count) return header;
    }
    const bool mayFollow = start.size() == headerBytes && start.starts_with("\xFF\xD8\xFF");
    return mayFollow ? ReadPictureHeader(files_.Read(address, maxFileBytes)) : header;
}

PagePictures::Known PagePictures::ReadKnown(HtmlNodeId image) const {
    Known known;
    SvgSize drawing;
    if (IsDrawing(image)) {
        drawing = SizeOfSvg(page_.Tree(), image);
    } else {
        std::string start;
        known.header = HeaderOf(AddressOf(image), start);
        known.size = {known.header.ShownWidth(), known.header.ShownHeight()};
        if (known.header.format == PictureFormat::Other) drawing = SizeOfSvg(start);
    }
    if (drawing.width > 0) {
        known.header.format = PictureFormat::Svg;
        known.size = {drawing.width, drawing.height};
    }
    if (!store_.CanDecode(known.header.format)) known.size = {};
    return known;
}

const PagePictures::Known& PagePictures::KnownOf(HtmlNodeId image) {
    const auto known = known_.find(image);
    return known != known_.end() ? known->second : known_[image] = ReadKnown(image);
}

Size PagePictures::NaturalSize(HtmlNodeId image) {
    return KnownOf(image).size;
}

bool PagePictures::ShowsObject(HtmlNodeId object) {
    if (known_.find(object) == known_.end() && ++objectsQueried_ > maxObjects) return false;
    return !KnownOf(object).size.IsEmpty();
}

std::string PagePictures::BytesOf(HtmlNodeId image, PictureFormat format) const {
    if (IsDrawing(image)) return SafeSvg(page_.Tree(), image);
    const bool isSvg = format == PictureFormat::Svg;
    std::string bytes = files_.Read(AddressOf(image), isSvg ? maxSvgFileBytes : maxFileBytes);
    if (isSvg) return SafeSvg(bytes);
    return format == PictureFormat::Ico ? LargestIcon(bytes) : bytes;
}

const Picture& PagePictures::Read(HtmlNodeId image) {
    const auto kept = std::ranges::find(recent_, TextPos(image), &Picture::position);
    if (kept != recent_.end()) {
        recent_.splice(recent_.begin(), recent_, kept);
        return recent_.front();
    }
    const PictureHeader& header = KnownOf(image).header;
    Picture& picture = recent_.emplace_front();
    picture.position = TextPos(image); // by which a store tells pictures apart
    picture.format = header.format;
    picture.orientation = header.orientation;
    picture.bytes = BytesOf(image, header.format);
    bytes_ += picture.bytes.size();
    while (recent_.size() > 1 && bytes_ > maxKeptBytes) {
        bytes_ -= recent_.back().bytes.size();
        recent_.pop_back();
    }
    return recent_.front();
}

void PagePictures::StartFrame() {
    inFrame_ = true;
    frameCost_ = 0;
}

bool PagePictures::ResetLeftOut() {
    return std::exchange(leftOut_, false);
}

std::int64_t PagePictures::CostOf(HtmlNodeId image, const Rect& box) {
    const PictureHeader& header = KnownOf(image).header;
    if (header.format != PictureFormat::Svg) return std::int64_t{header.width} * header.height;
    return std::int64_t{box.width} * box.height +
           costOfSvgByte * std::int64_t(Read(image).bytes.size());
}

bool PagePictures::Draw(Canvas& canvas, HtmlNodeId image, const Rect& box) {
    if (KnownOf(image).size.IsEmpty()) return false;
    Picture kept;
    kept.position = TextPos(image);
    if (store_.IsKept(kept.position, {box.width, box.height}))
        return store_.Draw(canvas, kept, box);
    if (inFrame_ && frameCost_ >= maxFrameCost) return leftOut_ = true; // its room stays empty
    frameCost_ += CostOf(image, box);
    return store_.Draw(canvas, Read(image), box);
}
