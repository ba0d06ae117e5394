#include "platform/qt/system/font_setup.h"

#include <fontconfig/fontconfig.h>

#include <system_error>

FontSetup::FontSetup() {
    try {
        reader_ = std::thread([] { FcInit(); });
    } catch (const std::system_error&) {
        // No thread to be had: Qt reads the configuration itself when it needs it.
    }
}

void FontSetup::Finish() {
    if (reader_.joinable()) reader_.join();
}
