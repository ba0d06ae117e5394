#include "app/file_fingerprints.h"

#include "app/charset.h"
#include "app/main_form.h"
#include "app/shown_book.h"
#include "common/string_text.h"
#include "formats/rtf/rtf_reader.h"

FileFingerprints::FileFingerprints(const MainForm& form, BookFile& file)
    : files_(*form.ports.files), maxPlainText_(MaxPlainText(form)),
      ansiCodePage_(form.ports.locale->AnsiCodePage()), file_(file) {}

std::optional<TextFingerprint> FileFingerprints::Of(ChosenCharset chosen) {
    const std::pair key(chosen.codePage, chosen.exact);
    const auto known = known_.find(key);
    if (known != known_.end()) return known->second;
    ReadContent(files_, maxPlainText_, file_);
    if (file_.problem) return std::nullopt;
    return known_[key] = Compute(*file_.content, chosen);
}

TextFingerprint FileFingerprints::Compute(const BookContent& content, ChosenCharset chosen) const {
    if (content.plainText)
        return FingerprintOf(*DecodeBook(content.plainText, chosen, ansiCodePage_));
    const Document document = ReadRtf(content.richText, ansiCodePage_);
    return FingerprintOf(StringText(document.text));
}

void KeepPageFile(MainForm& form, const BookRecord& record, const BookSettings& settings) {
    TextPlaces& state = form.places;
    if (!state.file || (state.kept.text && state.kept.IsOf(*state.file))) return;
    if (form.ports.files->Version(record.Path()) != state.file) return; // not the one shown
    BookFile file;
    file.path = record.Path();
    const auto text = FileFingerprints(form, file).Of({});
    if (!text) return;
    state.kept.text = text;
    state.kept.SetFile(*state.file);
    StorePlaces(settings, PlacesOf::Page, state.kept, state.stored);
}
