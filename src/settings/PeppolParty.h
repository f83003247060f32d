#pragma once

#include "common/Status.h"

#include <QSqlDatabase>
#include <QString>
#include <QStringList>

namespace ordwell {

// How an electronic (Peppol) order names one of its two parties: the organisation as buyer,
// the vendor as seller. The organisation's details also give the currency its prices are in.
struct PeppolParty {
    QString scheme;    // the address's scheme, four digits: "0088" for a GLN
    QString endpoint;  // the address itself, in that scheme
    QString legalName; // the registered name
    QString country;   // two letters, "GB"
    QString currency;  // three letters, "GBP"; the organisation's only

    bool operator==(const PeppolParty& other) const = default;
};

enum class PeppolSide { Organisation, Vendor };

namespace PeppolRules {

enum Field { Scheme, Endpoint, LegalName, Country, Currency, FieldCount };

// The field's name as a sentence uses it ("the electronic address").
QString fieldName(int field);

// A GS1 location number: thirteen digits, the last the check digit of the others.
bool isGln(const QString& text);

// A scheme the Peppol network knows for addresses.
bool isKnownScheme(const QString& scheme);

// What is wrong with a value that has been given, as a message and the field to put right;
// an empty value is no problem here (see missing). Country and currency are compared as typed:
// callers upper-case them first.
struct Problem {
    QString message;
    int field = Scheme;
};
QList<Problem> problems(const PeppolParty& party, PeppolSide side);

// The fields an electronic order needs from the party and that are empty.
QList<int> missing(const PeppolParty& party, PeppolSide side);

// Upper-cases the codes and trims every value, as they are kept.
PeppolParty normalised(PeppolParty party);

} // namespace PeppolRules

// The fields live beside the party's other details: the organisation's one row on the system
// database, the vendor's one row on its own database.
namespace PeppolPartyStore {

Result<PeppolParty> load(const QSqlDatabase& db, PeppolSide side);

// Writes only these fields. Fails, naming why, when the party's details row is not there yet.
Status save(const QSqlDatabase& db, PeppolSide side, const PeppolParty& party);

} // namespace PeppolPartyStore
} // namespace ordwell
