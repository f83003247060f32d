#include "OrderPrinting.h"

#include "OrderTransitions.h"
#include "common/Dates.h"
#include "common/Sql.h"
#include "store/ServerReports.h"
#include "store/Store.h"

#include <QDir>

namespace ordwell::OrderPrinting {

namespace {

// Each field that holds something followed by ",", and the last one bare.
QString joinPresent(const OrganisationDetails& details, std::initializer_list<int> withComma, int last) {
    QString text;
    for (int field : withComma) {
        if (!details[field].isEmpty())
            text += details[field] + QLatin1Char(',');
    }
    text += details[last];
    return text;
}

Result<OrganisationDetails> storedDetails(const QSqlDatabase& systemDb) {
    auto loaded = OrganisationDetailsStore(systemDb).load();
    if (!loaded)
        return loaded.status();
    return loaded.value().value_or(OrganisationDetails());
}

} // namespace

QString BuildOrganisationAddress(const OrganisationDetails& details) {
    return joinPresent(details, {Location, Department, Address1, Address2, Address3, County}, Postcode);
}

QString BuildContactDetails(const OrganisationDetails& details) {
    return joinPresent(details, {Contact, Telephone}, Email);
}

Result<QString> BuildOrganisationAddress(const QSqlDatabase& systemDb) {
    auto details = storedDetails(systemDb);
    if (!details)
        return details.status();
    return BuildOrganisationAddress(details.value());
}

Result<QString> BuildContactDetails(const QSqlDatabase& systemDb) {
    auto details = storedDetails(systemDb);
    if (!details)
        return details.status();
    return BuildContactDetails(details.value());
}

Result<QMap<QString, QString>> PrintParameters(const QSqlDatabase& systemDb, const QString& orderId) {
    auto details = storedDetails(systemDb);
    if (!details)
        return details.status();
    QMap<QString, QString> parameters;
    parameters.insert(QStringLiteral("ordnum"), orderId);
    parameters.insert(QStringLiteral("custadd"), BuildOrganisationAddress(details.value()));
    parameters.insert(QStringLiteral("contdet"), BuildContactDetails(details.value()));
    return parameters;
}

Result<QString> OrderFormFile(const QSqlDatabase& vendorDb, const QString& dataDir) {
    auto row = Sql::exec(vendorDb, QStringLiteral("SELECT ordform, vendorid FROM vendor LIMIT 1"));
    if (!row)
        return row.status();
    if (!row.value().next())
        return Status::fail(QStringLiteral("The vendor's details are missing, so there is no order form to print."));
    const QString path = Store::resolveFilePath(dataDir, row.value().value(0).toString());
    // On a server the vendor's own report comes from its data, copied here for printing.
    return ServerReports::fileFor(
        vendorDb, path, QDir(dataDir).filePath(QStringLiteral("Server reports/") + row.value().value(1).toString()));
}

Status MarkPrinted(const QSqlDatabase& vendorDb, const QString& orderId, const QDate& today) {
    return OrderTransitions::moveOrder(vendorDb, orderId, OrderStatus::Printed, today);
}

} // namespace ordwell::OrderPrinting
