#include "app/main_form.h"

MainForm::MainForm(Ports given) : ports(std::move(given)) {
    productTitle = ports.versionInfo->OwnVersion().title;
}
