// One small file from the web, on Qt Network.
#pragma once

#include "platform/update_check.h"

#include <QUrl>

// As UpdateCheck::Fetch does. `timeLimit` in milliseconds.
FetchAnswer FetchFromWeb(const QUrl& address, int timeLimit = fetchTime);
