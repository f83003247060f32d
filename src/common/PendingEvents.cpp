#include "PendingEvents.h"

#include <QCoreApplication>
#include <QEventLoop>

namespace ordwell {

void letPendingEventsRun() {
    QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
}

} // namespace ordwell
