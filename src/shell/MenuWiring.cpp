#include "MenuWiring.h"

#include "shell/AppContext.h"
#include "shell/MainWindow.h"

namespace ordwell {

void wireMenus(MainWindow& mainWindow, AppContext& context) {
    Q_UNUSED(mainWindow);
    Q_UNUSED(context);
}

} // namespace ordwell
