#include "platform/qt/system/qt_registry.h"

#include <cerrno>

std::u16string QtRegistry::Read(const std::u16string&, const std::u16string&) const {
    return {};
}

int QtRegistry::Write(const std::u16string&, const std::u16string&, const std::u16string&) {
    return ENOTSUP;
}
