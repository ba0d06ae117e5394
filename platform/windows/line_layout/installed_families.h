// The font families that the system has, and how it links them.
#pragma once

#include "platform/windows/base/win32.h"

#include <string>
#include <vector>

struct InstalledFamily {
    std::wstring name;
    FONTSIGNATURE signature = {};
    bool HasSubset(int bit) const { return (signature.fsUsb[bit / 32] >> (bit % 32) & 1) != 0; }
};

// Those with outlines. Asked of the system once; a font installed later is not among them.
const std::vector<InstalledFamily>& InstalledFamilies();
// Those with the most subsets first.
const std::vector<InstalledFamily>& BroadFamiliesFirst();

// Whether GDI has an outline font by that name, also one that it knows by another name.
bool IsInstalledFamily(const std::wstring& family);

// The families that the system's font linking gives to one, in its order; they need not be
// installed.
std::vector<std::wstring> LinkedFamilies(const std::wstring& family);
