// Asking before something is lost.
#pragma once

#include <string>

struct MainForm;

// Says what will be lost and asks whether to go on; Cancel is the default answer.
bool ConfirmLoss(MainForm&, const std::u16string& whatWillBeLost);
