// A data file whose whole content follows from one number, so that a mixture of two states shows.
#pragma once

#include "common/text.h"
#include "datafile/ini_file.h"

#include <string>

inline constexpr int keyCount = 200;
inline constexpr std::u16string_view stateSection = u"State";

// The rest of the file, which no write may touch.
inline std::string Ballast() {
    std::string bytes = "; by hand\r\n[Other]\r\n";
    for (int i = 0; i < 2000; ++i) {
        bytes += "/books/" + std::to_string(i) + ".txt=" + std::string(100, 'x') + "\r\n";
    }
    return bytes;
}

// Of another length from one state to the next.
inline std::u16string StateValue(int number) {
    return NumberText(number) + std::u16string(static_cast<std::size_t>(number % 17), u'.');
}

inline std::string StateBytes(int number) {
    std::string bytes = Ballast() + "[State]\r\n";
    const std::u16string value = StateValue(number);
    for (int key = 0; key < keyCount; ++key) {
        bytes +=
            "key" + std::to_string(key) + "=" + std::string(value.begin(), value.end()) + "\r\n";
    }
    return bytes;
}

inline void WriteState(IniFile& file, int number) {
    IniBatch batch(file);
    for (int key = 0; key < keyCount; ++key) {
        IniWriteString(file, stateSection, u"key" + NumberText(key), StateValue(number));
    }
    batch.Commit();
}

inline std::u16string NotDecoded(int, std::string_view) { // all is UTF-8 here
    return {};
}
