// The entry point of the module, resolved by name.
#include "platform/qt/web_fetch/web_fetch.h"

extern "C" Q_DECL_EXPORT void NorvasetFetch(const QString& address, FetchAnswer& answer) {
    answer = FetchFromWeb(QUrl(address, QUrl::StrictMode));
}
