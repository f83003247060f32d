#include "ShippedReports.h"

#include "store/Store.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

namespace ordwell::ShippedReports {

const QStringList& fileNames() {
    static const QStringList names = {Store::DefaultOrderFormFileName, OutstandingItemsFileName, OrderHistoryFileName};
    return names;
}

QStringList installMissing(const QString& dataDir) {
    QStringList failed;
    for (const QString& name : fileNames()) {
        const QString target = QDir(dataDir).filePath(name);
        if (QFileInfo::exists(target))
            continue;
        if (!QFile::copy(QStringLiteral(":/") + name, target)) {
            failed << name;
            continue;
        }
        // Resource copies arrive read-only; the user's copy is theirs to change.
        QFile::setPermissions(target, QFile::ReadOwner | QFile::WriteOwner);
    }
    return failed;
}

} // namespace ordwell::ShippedReports
