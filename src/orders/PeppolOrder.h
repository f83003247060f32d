#pragma once

#include "OrderExport.h"
#include "common/Money.h"
#include "common/Status.h"
#include "settings/PeppolParty.h"

#include <QByteArray>
#include <QDate>
#include <QList>
#include <QSqlDatabase>
#include <QString>
#include <QStringList>

namespace ordwell {

// An order written as a Peppol BIS Ordering 3 order (order-only profile): a UBL 2.1 Order
// that the vendor's own system, or its access point on the Peppol network, reads.
namespace PeppolOrder {

inline const QString CustomizationId = QStringLiteral("urn:fdc:peppol.eu:poacc:trns:order:3");
inline const QString ProfileId = QStringLiteral("urn:fdc:peppol.eu:poacc:bis:order_only:3");
// UN/ECE Recommendation 20's "piece", for items with no unit of their own.
inline const QString DefaultUnit = QStringLiteral("H87");

// "ABC1000123" -> "ABC1000123.xml", beside the CSV file of the same order.
QString FileName(const QString& orderId);

// One party's address and the person to ask, as the order shows them (empty parts left out).
struct PartyDetails {
    QString name;
    QString street;
    QString additionalStreet;
    QString city;
    QString postcode;
    QString county;
    QString contact;
    QString telephone;
    QString email;
};

struct Line {
    QString id;
    QString code;
    QString name;
    int quantity = 0;
    Money price;
    Money amount; // quantity x price, rounded to the penny
    QString unit;
    QString gtin;
};

struct Order {
    QString orderId;
    QDate issueDate;
    QDate validUntil; // the first price expiry of its items not already past, else a month on
    QString reference;
    QString note;
    PeppolParty buyer;
    PartyDetails buyerDetails;
    PeppolParty seller;
    PartyDetails sellerDetails;
    QList<Line> lines; // cancelled lines left out
    Money total;       // the lines' amounts added up
};

// Reads the order with what it needs from the organisation and the vendor. Refuses, before
// anything is written, an order that may not be sent, one with no line left, and one whose
// parties lack a detail the format requires: the message names every missing detail.
Result<Order> gather(const QSqlDatabase& systemDb, const QSqlDatabase& vendorDb, const QString& vendorName,
                     const QString& orderId);

// The UBL document, UTF-8.
QByteArray document(const Order& order);

// Gathers, writes the document as the new file `path` and marks the order exported, as the
// CSV export does. Nothing is written when the order is refused.
OrderExport::ExportResult exportOrder(const QSqlDatabase& systemDb, const QSqlDatabase& vendorDb,
                                      const QString& vendorName, const QString& path, const QString& orderId);

} // namespace PeppolOrder
} // namespace ordwell
