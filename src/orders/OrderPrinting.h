#pragma once

#include "common/Status.h"
#include "settings/OrganisationDetails.h"

#include <QDate>
#include <QMap>
#include <QSqlDatabase>
#include <QString>

namespace ordwell {

// What printing an order on the vendor's order form needs besides the report itself: the
// organisation's address and contact texts, the report's parameters, and the stamps.
namespace OrderPrinting {

// The organisation, department, three address lines and county, each present one followed
// by ",", then the postcode without one: "Acme Stores,1 High St,Town,Shire,AB1 2CD". Nothing
// is put in for empty fields, so with no postcode the text ends in ",".
QString BuildOrganisationAddress(const OrganisationDetails& details);
// The contact, telephone and e-mail the same way: "Jo Bloggs,01234 567890,jo@example.com".
QString BuildContactDetails(const OrganisationDetails& details);

// The same two texts from the stored details (both empty when none are stored).
Result<QString> BuildOrganisationAddress(const QSqlDatabase& systemDb);
Result<QString> BuildContactDetails(const QSqlDatabase& systemDb);

// The three values the order-form report is given: "ordnum", "custadd" and "contdet".
Result<QMap<QString, QString>> PrintParameters(const QSqlDatabase& systemDb, const QString& orderId);

// The order-form report file the open vendor's details name, as it lies in `dataDir` now.
Result<QString> OrderFormFile(const QSqlDatabase& vendorDb, const QString& dataDir);

// The order is printed: status "P" with today's print date (and the reprint stamp when it was
// printed before), and every line that is not cancelled "P", in one step.
Status MarkPrinted(const QSqlDatabase& vendorDb, const QString& orderId, const QDate& today = QDate::currentDate());

} // namespace OrderPrinting
} // namespace ordwell
