#include "PeppolParty.h"

#include "common/Sql.h"

#include <QLocale>
#include <QRegularExpression>
#include <QSqlQuery>

namespace ordwell {

namespace {

const char* const PartyColumns[PeppolRules::FieldCount] = {"peppolscheme", "peppolid", "legalname", "country",
                                                           "currency"};

int partyFieldCount(PeppolSide side) {
    return side == PeppolSide::Organisation ? PeppolRules::FieldCount : PeppolRules::Currency;
}

QString partyTable(PeppolSide side) {
    return side == PeppolSide::Organisation ? QStringLiteral("Sysset") : QStringLiteral("vendor");
}

QString& partyValue(PeppolParty& party, int field) {
    switch (field) {
    case PeppolRules::Scheme:
        return party.scheme;
    case PeppolRules::Endpoint:
        return party.endpoint;
    case PeppolRules::LegalName:
        return party.legalName;
    case PeppolRules::Country:
        return party.country;
    default:
        return party.currency;
    }
}

const QString& partyValue(const PeppolParty& party, int field) {
    return partyValue(const_cast<PeppolParty&>(party), field);
}

QString partyName(PeppolSide side) {
    return side == PeppolSide::Organisation ? QStringLiteral("organisation") : QStringLiteral("vendor");
}

} // namespace

namespace PeppolRules {

QString fieldName(int field) {
    switch (field) {
    case Scheme:
        return QStringLiteral("electronic address scheme");
    case Endpoint:
        return QStringLiteral("electronic address");
    case LegalName:
        return QStringLiteral("legal name");
    case Country:
        return QStringLiteral("country");
    default:
        return QStringLiteral("currency");
    }
}

bool isGln(const QString& text) {
    static const QRegularExpression thirteenDigits(QStringLiteral("^[0-9]{13}$"));
    if (!thirteenDigits.match(text).hasMatch())
        return false;
    int sum = 0;
    for (int i = 0; i < 12; ++i)
        sum += text.at(i).digitValue() * (i % 2 == 0 ? 1 : 3);
    return (10 - sum % 10) % 10 == text.at(12).digitValue();
}

bool isKnownScheme(const QString& scheme) {
    // The Electronic Address Scheme code list the network accepts for an endpoint.
    static const QStringList known =
        QStringLiteral("0002 0007 0009 0060 0088 0096 0097 0106 0130 0135 0142 0151 0183 0184 0188 "
                       "0190 0191 0192 0195 0196 0198 0199 0200 0201 0204 0208 0209 0210 0211 0216 "
                       "0218 0221 0225 0230 0235 0240 0242 0244 0245 0246 0248 9910 9913 9914 9915 "
                       "9918 9919 9920 9922 9923 9924 9925 9926 9927 9928 9929 9930 9931 9932 9933 "
                       "9934 9935 9936 9937 9938 9939 9940 9941 9942 9943 9944 9945 9946 9947 9948 "
                       "9949 9950 9951 9952 9953 9957 9959")
            .split(QLatin1Char(' '));
    return known.contains(scheme);
}

QList<Problem> problems(const PeppolParty& party, PeppolSide side) {
    QList<Problem> found;
    if (!party.scheme.isEmpty() && !isKnownScheme(party.scheme))
        found << Problem{QStringLiteral("\"%1\" is not an electronic address scheme the Peppol network knows: give "
                                        "its four digits, for example 0088 for a GS1 location number (GLN).")
                             .arg(party.scheme),
                         Scheme};
    if (party.scheme == QLatin1String("0088") && !party.endpoint.isEmpty() && !isGln(party.endpoint))
        found << Problem{QStringLiteral("\"%1\" is not a valid GS1 location number: it must be 13 digits, the last "
                                        "of them the check digit.")
                             .arg(party.endpoint),
                         Endpoint};
    static const QRegularExpression twoLetters(QStringLiteral("^[A-Z]{2}$"));
    if (!party.country.isEmpty() && (!twoLetters.match(party.country).hasMatch() ||
                                     QLocale::codeToTerritory(party.country) == QLocale::AnyTerritory))
        found << Problem{QStringLiteral("\"%1\" is not a country code: give the country's two letters, for example "
                                        "GB.")
                             .arg(party.country),
                         Country};
    static const QRegularExpression threeLetters(QStringLiteral("^[A-Z]{3}$"));
    if (side == PeppolSide::Organisation && !party.currency.isEmpty() && !threeLetters.match(party.currency).hasMatch())
        found << Problem{QStringLiteral("\"%1\" is not a currency code: give the currency's three letters, for "
                                        "example GBP.")
                             .arg(party.currency),
                         Currency};
    return found;
}

QList<int> missing(const PeppolParty& party, PeppolSide side) {
    QList<int> fields;
    for (int field = 0; field < partyFieldCount(side); ++field) {
        if (partyValue(party, field).trimmed().isEmpty())
            fields << field;
    }
    return fields;
}

PeppolParty normalised(PeppolParty party) {
    for (int field = 0; field < FieldCount; ++field)
        partyValue(party, field) = partyValue(party, field).trimmed();
    party.country = party.country.toUpper();
    party.currency = party.currency.toUpper();
    return party;
}

} // namespace PeppolRules

namespace PeppolPartyStore {

Result<PeppolParty> load(const QSqlDatabase& db, PeppolSide side) {
    QStringList columns;
    for (int field = 0; field < partyFieldCount(side); ++field)
        columns << QString::fromLatin1(PartyColumns[field]);
    auto query = Sql::exec(
        db, QStringLiteral("SELECT %1 FROM %2 LIMIT 1").arg(columns.join(QStringLiteral(", ")), partyTable(side)));
    if (!query)
        return Status::fail(QStringLiteral("The %1's electronic ordering details could not be read.\n%2")
                                .arg(partyName(side), query.message()));
    PeppolParty party;
    if (query.value().next()) {
        for (int field = 0; field < partyFieldCount(side); ++field)
            partyValue(party, field) = query.value().value(field).toString();
    }
    return party;
}

Status save(const QSqlDatabase& db, PeppolSide side, const PeppolParty& party) {
    QStringList assignments;
    QVariantList values;
    for (int field = 0; field < partyFieldCount(side); ++field) {
        assignments << QString::fromLatin1(PartyColumns[field]) + QStringLiteral(" = ?");
        values << Sql::textOrNull(partyValue(party, field));
    }
    auto ran = Sql::exec(
        db, QStringLiteral("UPDATE %1 SET %2").arg(partyTable(side), assignments.join(QStringLiteral(", "))), values);
    if (!ran)
        return Status::fail(QStringLiteral("The %1's electronic ordering details could not be saved, so nothing was "
                                           "changed.\n%2")
                                .arg(partyName(side), ran.message()));
    if (ran.value().numRowsAffected() == 0)
        return Status::fail(QStringLiteral("The %1's details must be saved before its electronic ordering details.")
                                .arg(partyName(side)));
    return Status::ok();
}

} // namespace PeppolPartyStore
} // namespace ordwell
