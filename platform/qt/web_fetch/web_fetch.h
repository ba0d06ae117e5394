// Fetches one small file by Qt Network.
#pragma once

#include "platform/update_check.h"

#include <QUrl>

// Same contract as UpdateCheck::Fetch. `timeout` is in milliseconds.
FetchAnswer FetchFromWeb(const QUrl& address, int timeout = fetchTime);
