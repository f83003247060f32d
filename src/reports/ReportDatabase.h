#pragma once

#include "common/Status.h"

#include <QSqlDatabase>
#include <QSqlError>
#include <QString>
#include <memory>

namespace ordwell {

// A connection of the report's own to one vendor database, opened read-only at the file
// level and refusing writes at the statement level too, so a report file can never change
// data. Closed and forgotten when the object goes.
class ReportDatabase {
public:
    static Result<std::shared_ptr<ReportDatabase>> open(const QString& path);
    // The vendor's data on a server, through a session that refuses every write.
    static Result<std::shared_ptr<ReportDatabase>> openOnServer(const QString& conninfo, const QString& vendorCode);
    ~ReportDatabase();
    ReportDatabase(const ReportDatabase&) = delete;
    ReportDatabase& operator=(const ReportDatabase&) = delete;

    QSqlDatabase database() const;
    const QString& path() const { return m_path; }

    // True when the database refused because something tried to write.
    static bool isWriteRefusal(const QSqlError& error);

private:
    ReportDatabase(QString connectionName, QString path);
    QString m_connectionName;
    QString m_path;
};

} // namespace ordwell
