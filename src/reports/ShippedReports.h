#pragma once

#include <QString>
#include <QStringList>

namespace ordwell {

// The report files that come with Ordwell ("ordform.rpt", "outitms.rpt", "vendhist.rpt"),
// kept as resources and copied into the data folder where a file of that name is missing.
// A file already there is the user's and is never replaced.
namespace ShippedReports {

inline const QString OutstandingItemsFileName = QStringLiteral("outitms.rpt");
inline const QString OrderHistoryFileName = QStringLiteral("vendhist.rpt");

const QStringList& fileNames();

// Copies the missing ones; gives the names of those that could not be copied.
QStringList installMissing(const QString& dataDir);

} // namespace ShippedReports
} // namespace ordwell
