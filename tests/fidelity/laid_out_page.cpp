#include "tests/fidelity/laid_out_page.h"

#include "formats/css/css_parser.h"
#include "formats/css/css_sheet_loader.h"
#include "view/page/page_box_builder.h"

#include <QFile>
#include <QImageReader>

namespace {
constexpr int utf8 = 65001, windowsLatin = 1252;
constexpr double screenDpi = 96;

QByteArray BytesOf(const std::filesystem::path& path) {
    QFile file(QString::fromStdString(path.string()));
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

std::filesystem::path PathOf(const std::filesystem::path& folder, std::u16string_view address) {
    const QByteArray path = QStringView(address).toUtf8().split('#').front().split('?').front();
    return folder / QByteArray::fromPercentEncoding(path).toStdString();
}

std::vector<CssSheet> SheetsOf(const HtmlTree& tree, const std::filesystem::path& folder,
                               const CssMedium& medium) {
    CssReading reading;
    reading.medium = medium;
    reading.quirks = tree.Quirks() == HtmlQuirks::Full;
    std::vector<CssSheet> sheets;
    sheets.push_back(
        ReadCss(u"* { background: rgba(0,0,0,0.01) !important } html { font-family: serif }"));
    const auto read = [&](std::u16string_view address) {
        return BytesOf(PathOf(folder, address)).toStdString();
    };
    for (const std::u16string& text : LoadCssTexts(tree, medium, utf8, read))
        sheets.push_back(ReadCss(text, reading));
    return sheets;
}

HtmlTree TreeOf(const std::filesystem::path& file) {
    const QByteArray bytes = BytesOf(file);
    return ReadHtmlFile({bytes.data(), std::size_t(bytes.size())}, 0, windowsLatin).tree;
}

} // namespace

LaidOutPage::LaidOutPage(const std::filesystem::path& file, LineLayout& system, double width)
    : folder(file.parent_path()), tree(TreeOf(file)), medium{float(width), 600, 16},
      sheets(SheetsOf(tree, folder, medium)), styles(StylePage(tree, sheets, medium)),
      boxes(BoxesOf(tree, styles)), fonts(system, styles, 1, screenDpi),
      text(tree, styles, boxes, fonts), layouter(boxes, text, system, 1), flow(layouter) {
    system.SetResolution(screenDpi);
    text.pictureSize = [this](const PageBox& box) {
        const QSize size = QImageReader(PicturePath(box)).size();
        return size.isValid() ? Size{size.width(), size.height()} : Size{};
    };
    flow.SetWidth(width);
}

QString LaidOutPage::PicturePath(const PageBox& picture) const {
    const HtmlAttribute* source = tree[picture.node].Attribute(HtmlName::Src);
    if (!picture.generated && !source) return {};
    const auto address = picture.generated ? picture.generated->text : source->Value();
    return QString::fromStdString(PathOf(folder, address).string());
}
