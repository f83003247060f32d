#pragma once

#include "common/Status.h"

#include <QList>
#include <QSqlDatabase>
#include <QString>

namespace ordwell {

// One row of the system database's list of vendors.
struct VendorEntry {
    QString name;   // company name, the key
    QString code;   // three-character shortcode
    QString status; // "A" active, "D" deactivated

    // "ABC - Acme Ltd", as the choosing lists show it.
    QString listText() const { return code + QStringLiteral(" - ") + name; }
};

// Reads and writes the `vendors` table of the system database.
namespace VendorRepository {

// Active vendors in a stable order (by code), the order every list shows.
Result<QList<VendorEntry>> activeVendors(const QSqlDatabase& systemDb);

// True when no vendor, active or deactivated, has this code.
Result<bool> codeIsFree(const QSqlDatabase& systemDb, const QString& code);

Status addVendor(const QSqlDatabase& systemDb, const QString& name, const QString& code);
Status removeVendor(const QSqlDatabase& systemDb, const QString& code);
Status deactivateVendor(const QSqlDatabase& systemDb, const QString& code);

} // namespace VendorRepository
} // namespace ordwell
