#pragma once

#include "ExportRecords.h"
#include "common/Status.h"

#include <QLocale>
#include <QSqlDatabase>
#include <QString>

namespace ordwell {

// Writing an order to the desktop as a comma-separated file named by its number, and marking
// it exported once the file is whole.
namespace OrderExport {

inline const QString ExistsText = QStringLiteral(
    "The export file already exists on your desktop, please remove this file before exporting the order again");
inline const QString ExistsTitle = QStringLiteral("File Exists");
inline const QString CompleteTitle = QStringLiteral("Export Complete");
QString CompleteText(const QString& orderId);

// "ABC1000123" -> "ABC1000123.csv".
QString FileName(const QString& orderId);

// The order's texts from the organisation's details, the open vendor's details and the order
// with its lines (cancelled ones included), formatted in the given regional settings.
Result<ExportTexts> GatherTexts(const QSqlDatabase& systemDb, const QSqlDatabase& vendorDb, const QString& vendorName,
                                const QString& orderId, const QLocale& locale = QLocale());

enum class Outcome {
    Exported,   // the file is written and the order is "X"
    FileExists, // a file of that name is on the desktop: nothing written, nothing changed
    Failed,     // the folder, the file or the database refused: nothing changed, see message
};

struct ExportResult {
    Outcome outcome = Outcome::Failed;
    QString message; // for Failed: what went wrong, in the user's words
    QString path;    // the export file's full path
};

// Writes `contents` as the order's file in `desktopDir` unless one is there already. The file
// appears whole or not at all: it is written beside its final name and renamed when complete.
ExportResult WriteExportFile(const QString& desktopDir, const QString& orderId, const QByteArray& contents);

// Writes `contents` as the new file `path`, refusing one already there (FileExists). The file
// appears whole or not at all: it is written beside its final name and renamed when complete.
ExportResult WriteNewFile(const QString& path, const QByteArray& contents);

// The new file first, then the order and its live lines "X" in one step. When the order cannot
// be marked, the new file is taken away again so the export can be retried.
ExportResult WriteAndMark(const QSqlDatabase& vendorDb, const QString& orderId, const QString& path,
                          const QByteArray& contents);

// The whole export: the file first, then the order and its live lines "X" in one step. When
// the order cannot be marked, the new file is taken away again so the export can be retried.
ExportResult ExportOrder(const QSqlDatabase& systemDb, const QSqlDatabase& vendorDb, const QString& vendorName,
                         const QString& desktopDir, const QString& orderId);

} // namespace OrderExport
} // namespace ordwell
