// Makes data sets of any size for trying the program and its benchmarks out by hand:
//   ordwell_scale_data --data-dir DIR [--vendor CODE --name NAME --items N --expired-every K --rules N]
//                      [--price-list FILE --lines N --from K]
// The system database (with example organisation details) is made when missing; the vendor is
// added with a catalogue of N items and N barcode rules; the price list covers items K onwards.
#include "ScaleData.h"
#include "common/Sql.h"
#include "settings/OrganisationDetails.h"
#include "store/Store.h"
#include "vendors/VendorRepository.h"

#include <QCommandLineParser>
#include <QCoreApplication>
#include <QDir>
#include <cstdio>

using namespace ordwell;

namespace {

int stop(const QString& why) {
    std::fprintf(stderr, "%s\n", qPrintable(why));
    return 1;
}

Status addOrganisation(const QSqlDatabase& systemDb) {
    if (Store::HasOrganisationDetails(systemDb))
        return Status::ok();
    OrganisationDetails d;
    const char* values[DetailsFieldCount] = {"Head Office", "Purchasing", "1 High Street", "", "Canterbury",     "Kent",
                                             "CT1 1AA",     "Ann Smith",  "01227 123456",  "", "ann@example.org"};
    for (int field = 0; field < DetailsFieldCount; ++field)
        d[field] = QString::fromLatin1(values[field]);
    return OrganisationDetailsStore(systemDb).save(d);
}

// Rules with prefixes R01, R02, ...: every third one deactivated.
Status addRules(const QString& dataDir, const QString& code, int count) {
    const QString connection = QStringLiteral("scale-data-rules");
    Status result;
    {
        auto db = Store::OpenVendorDatabase(dataDir, Store::vendorFileName(code), connection);
        if (!db)
            return db.status();
        QSqlDatabase handle = *db;
        for (int i = 1; i <= count && result; ++i)
            result = Sql::run(handle,
                              QStringLiteral("INSERT INTO barcodes (codestart, skipfirst, skiplast, status) "
                                             "VALUES (?, ?, ?, ?)"),
                              {QStringLiteral("R%1").arg(i, 2, 10, QLatin1Char('0')), 3, i % 3,
                               i % 3 == 0 ? QStringLiteral("D") : QStringLiteral("A")});
        handle.close();
    }
    QSqlDatabase::removeDatabase(connection);
    return result;
}

} // namespace

int main(int argc, char** argv) {
    QCoreApplication app(argc, argv);
    QCommandLineParser parser;
    parser.setApplicationDescription(QStringLiteral("Makes Ordwell data sets of any size."));
    parser.addHelpOption();
    const QCommandLineOption dataDir(QStringLiteral("data-dir"), QStringLiteral("The data folder."),
                                     QStringLiteral("DIR"));
    const QCommandLineOption vendor(QStringLiteral("vendor"), QStringLiteral("Vendor code to add."),
                                    QStringLiteral("CODE"));
    const QCommandLineOption name(QStringLiteral("name"), QStringLiteral("The vendor's name."), QStringLiteral("NAME"),
                                  QStringLiteral("Scale Data Ltd"));
    const QCommandLineOption items(QStringLiteral("items"), QStringLiteral("Items in the catalogue."),
                                   QStringLiteral("N"), QStringLiteral("1000"));
    const QCommandLineOption expired(QStringLiteral("expired-every"),
                                     QStringLiteral("Every K-th item's price expired yesterday (0: none)."),
                                     QStringLiteral("K"), QStringLiteral("0"));
    const QCommandLineOption rules(QStringLiteral("rules"), QStringLiteral("Barcode rules."), QStringLiteral("N"),
                                   QStringLiteral("0"));
    const QCommandLineOption priceList(QStringLiteral("price-list"), QStringLiteral("A price list to write."),
                                       QStringLiteral("FILE"));
    const QCommandLineOption lines(QStringLiteral("lines"), QStringLiteral("Lines of the price list."),
                                   QStringLiteral("N"), QStringLiteral("1000"));
    const QCommandLineOption from(QStringLiteral("from"), QStringLiteral("The price list's first item number."),
                                  QStringLiteral("K"), QStringLiteral("0"));
    parser.addOptions({dataDir, vendor, name, items, expired, rules, priceList, lines, from});
    parser.process(app);
    const QDate today = QDate::currentDate();

    if (parser.isSet(priceList)) {
        if (Status written = ScaleData::writePriceList(parser.value(priceList), parser.value(from).toInt(),
                                                       parser.value(lines).toInt(), today);
            !written)
            return stop(written.message());
    }
    if (!parser.isSet(dataDir))
        return parser.isSet(priceList) ? 0 : stop(QStringLiteral("--data-dir is needed"));
    const QString dir = parser.value(dataDir);
    QDir().mkpath(dir);
    if (!QFile::exists(Store::systemDatabasePath(dir))) {
        if (Status created = Store::CreateSystemDatabase(dir); !created)
            return stop(created.message());
    }
    auto systemDb = Store::OpenSystemDatabase(dir);
    if (!systemDb)
        return stop(systemDb.message());
    if (Status details = addOrganisation(*systemDb); !details)
        return stop(details.message());
    if (parser.isSet(vendor)) {
        const QString code = parser.value(vendor).toUpper();
        if (Status added = VendorRepository::addVendor(*systemDb, parser.value(name), code); !added)
            return stop(added.message());
        if (Status made =
                ScaleData::makeVendor(dir, code, parser.value(items).toInt(), today, parser.value(expired).toInt());
            !made)
            return stop(made.message());
        if (Status made = addRules(dir, code, parser.value(rules).toInt()); !made)
            return stop(made.message());
    }
    return 0;
}
