#include "formats/rtf/rtf_write_text.h"

#include "formats/rtf/rtf_escape.h"
#include "formats/rtf/rtf_fields.h"

#include <algorithm>

RtfTextWriter::RtfTextWriter(const Document& document, const DocumentStyles& styles,
                             const RtfWriteTables& tables, std::string& rtf)
    : document_(document), styles_(styles), tables_(tables), rtf_(rtf),
      charStyles_(document.charRuns), paragraphStyles_(document.paragraphRuns),
      picture_(document.pictures.begin()) {}

void RtfTextWriter::Write(TextPos start, TextPos end) {
    auto row = std::find_if(document_.rows.begin(), document_.rows.end(),
                            [start](const TableRow& r) { return r.start >= start; });
    for (TextPos at = start; at < end;) {
        while (row != document_.rows.end() && row->start < at)
            ++row;
        if (row != document_.rows.end() && row->start == at && row->end <= end) {
            WriteRow(row);
            at = row->end;
        } else {
            at = WriteParagraph(at, end);
        }
    }
}

TextPos RtfTextWriter::ParagraphEnd(TextPos at, TextPos limit) const {
    const std::u16string_view text(document_.text.data(), static_cast<std::size_t>(limit));
    const std::size_t found = text.find_first_of(u"\n\a", static_cast<std::size_t>(at));
    return found == text.npos ? limit : static_cast<TextPos>(found);
}

// Returns where the next one starts.
TextPos RtfTextWriter::WriteParagraph(TextPos start, TextPos end) {
    const TextPos last = ParagraphEnd(start, end);
    if (last == end) {
        WriteText(start, end, false, "");
        return end;
    }
    // The cells of a part of a row are paragraphs, the row's own end is none.
    const bool isRowEnd = last == start && start > 0 &&
                          document_.text[static_cast<std::size_t>(start - 1)] == u'\a' &&
                          document_.text[static_cast<std::size_t>(start)] == u'\n';
    if (!isRowEnd) WriteText(start, last, false, "\\par\n");
    return last + 1;
}

void RtfTextWriter::WriteText(TextPos start, TextPos end, bool inTable,
                              std::string_view terminator) {
    const TextPos length = static_cast<TextPos>(document_.text.size());
    UseParagraphStyle(paragraphStyles_.At(terminator.empty() ? ParagraphEnd(end, length) : end),
                      inTable);
    for (TextPos at = start; at < end;) {
        UseCharStyle(charStyles_.At(at));
        const TextPos runEnd = charStyles_.RunEnd(end);
        WriteRun(at, runEnd);
        at = runEnd;
    }
    if (!terminator.empty()) UseCharStyle(charStyles_.At(end));
    rtf_ += terminator;
    // Paragraph words in a group would end with it.
    CloseRun();
    CloseLink();
}

void RtfTextWriter::UseParagraphStyle(std::uint32_t style, bool inTable) {
    if (style == paragraphStyle_ && inTable == inTable_) return;
    rtf_ += ParagraphStyleWords(styles_.paragraphStyles[style], inTable, tables_) + ' ';
    paragraphStyle_ = style;
    inTable_ = inTable;
}

void RtfTextWriter::UseCharStyle(std::uint32_t style) {
    if (style == charStyle_) return;
    CloseRun();
    const CharStyle& words = styles_.charStyles[style];
    if (words.link != link_) {
        CloseLink();
        if (words.link != 0) OpenLink(words.link);
    }
    // Some readers wait for the end of a superscript's group: it might hold a footnote.
    isRunOpen_ = words.script != Script::Normal;
    if (isRunOpen_) rtf_ += '{';
    rtf_ += CharStyleWords(words, tables_) + ' ';
    charStyle_ = style;
}

void RtfTextWriter::CloseRun() {
    if (!isRunOpen_) return;
    rtf_ += '}';
    isRunOpen_ = false;
    charStyle_ = none;
}

void RtfTextWriter::OpenLink(std::uint16_t link) {
    rtf_ += "{\\field{\\*\\fldinst{";
    AppendRtfText(rtf_, FieldOfLink(document_.links[link - 1u]));
    rtf_ += "}}{\\fldrslt ";
    link_ = link;
}

void RtfTextWriter::CloseLink() {
    if (link_ == 0) return;
    rtf_ += "}}";
    link_ = 0;
    charStyle_ = none;
}

void RtfTextWriter::WriteRun(TextPos start, TextPos end) {
    while (picture_ != document_.pictures.end() && picture_->position < start)
        ++picture_;
    for (TextPos at = start; at < end;) {
        const bool hasPicture = picture_ != document_.pictures.end() && picture_->position < end;
        const TextPos stop = hasPicture ? picture_->position : end;
        AppendRtfText(rtf_, {document_.text.data() + at, static_cast<std::size_t>(stop - at)});
        at = stop;
        if (!hasPicture) continue;
        WritePicture(*picture_++);
        ++at;
    }
}

namespace {
const char* KindWord(PictureFormat format) {
    switch (format) {
    case PictureFormat::Png: return "\\pngblip";
    case PictureFormat::Jpeg: return "\\jpegblip";
    case PictureFormat::Emf: return "\\emfblip";
    default: return "\\wmetafile8";
    }
}
// What some readers take a metafile's extent from.
int HundredthsOfMillimetre(std::int32_t twips) {
    return static_cast<int>(std::int64_t{twips} * 2540 / 1440);
}
} // namespace

void RtfTextWriter::WritePicture(const Picture& picture) {
    constexpr std::size_t bytesInLine = 64;
    constexpr char digits[] = "0123456789abcdef";
    rtf_ += std::string("{\\pict") + KindWord(picture.format);
    if (picture.format == PictureFormat::Wmf || picture.format == PictureFormat::Emf)
        rtf_ += "\\picw" + std::to_string(HundredthsOfMillimetre(picture.widthTwips)) + "\\pich" +
                std::to_string(HundredthsOfMillimetre(picture.heightTwips));
    if (picture.widthTwips != 0) rtf_ += "\\picwgoal" + std::to_string(picture.widthTwips);
    if (picture.heightTwips != 0) rtf_ += "\\pichgoal" + std::to_string(picture.heightTwips);
    for (std::size_t i = 0; i < picture.bytes.size(); ++i) {
        const auto byte = static_cast<unsigned char>(picture.bytes[i]);
        if (i % bytesInLine == 0) rtf_ += '\n';
        rtf_ += {digits[byte >> 4], digits[byte & 0xF]};
    }
    rtf_ += '}';
}
