#include "WaitCursor.h"

#include <QCursor>
#include <QGuiApplication>

namespace ordwell {

WaitCursor::WaitCursor() {
    if (qobject_cast<QGuiApplication*>(QCoreApplication::instance()))
        QGuiApplication::setOverrideCursor(QCursor(Qt::WaitCursor));
}

WaitCursor::~WaitCursor() {
    if (qobject_cast<QGuiApplication*>(QCoreApplication::instance()))
        QGuiApplication::restoreOverrideCursor();
}

} // namespace ordwell
