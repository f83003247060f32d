#include "OrderDataFixture.h"
#include "orders/OrderPrinting.h"
#include "settings/OrganisationDetails.h"
#include "store/Store.h"

#include <QDir>
#include <QTemporaryDir>
#include <QTest>

using namespace ordwell;

class TestOrderPrinting : public test::StrictTest {
    Q_OBJECT

    static OrganisationDetails acme(const QString& postcode) {
        OrganisationDetails d;
        d[Location] = QStringLiteral("Acme Stores");
        d[Address1] = QStringLiteral("1 High St");
        d[Address2] = QStringLiteral("Town");
        d[County] = QStringLiteral("Shire");
        d[Postcode] = postcode;
        d[Contact] = QStringLiteral("Jo Bloggs");
        d[Email] = QStringLiteral("jo@example.com");
        return d;
    }

private slots:
    void initTestCase() { test::initTestEnvironment(); }

    void organisationAddress_data() {
        QTest::addColumn<QString>("postcode");
        QTest::addColumn<QString>("address");
        QTest::newRow("with postcode") << QStringLiteral("AB1 2CD") << "Acme Stores,1 High St,Town,Shire,AB1 2CD";
        QTest::newRow("without postcode") << QString() << "Acme Stores,1 High St,Town,Shire,";
    }
    void organisationAddress() {
        QFETCH(QString, postcode);
        QFETCH(QString, address);
        QCOMPARE(OrderPrinting::BuildOrganisationAddress(acme(postcode)), address);
    }

    // Empty fields leave no double commas; the e-mail ends the text bare.
    void contactDetailsAndParameters() {
        QCOMPARE(OrderPrinting::BuildContactDetails(acme({})), QStringLiteral("Jo Bloggs,jo@example.com"));
        OrganisationDetails onlyPhone;
        onlyPhone[Telephone] = QStringLiteral("01234");
        QCOMPARE(OrderPrinting::BuildContactDetails(onlyPhone), QStringLiteral("01234,"));

        test::OrderDataFixture f; // stores Head Office, 1 High St, Kent, CT11AA, Ann, 01234 567890, ann@example.org
        auto parameters = OrderPrinting::PrintParameters(f.systemDb(), QStringLiteral("ABC1000000"));
        QVERIFY(parameters);
        QCOMPARE(parameters.value().value("ordnum"), QStringLiteral("ABC1000000"));
        QCOMPARE(parameters.value().value("custadd"), QStringLiteral("Head Office,1 High St,Kent,CT11AA"));
        QCOMPARE(parameters.value().value("contdet"), QStringLiteral("Ann,01234 567890,ann@example.org"));
        QCOMPARE(OrderPrinting::OrderFormFile(f.vendorDb(), f.ctx().dataDir()).value(),
                 f.ctx().dataFile(QStringLiteral("ordform.rpt")));
    }

    // A data folder moved or copied elsewhere still prints on its own reports; a report kept
    // outside any data folder stays where the user put it.
    void reportFollowsTheDataFolder() {
        test::OrderDataFixture f;
        const QString dataDir = f.ctx().dataDir();
        QVERIFY(test::writeFile(f.ctx().dataFile(QStringLiteral("ABCordform.rpt")), "mine"));
        QTemporaryDir elsewhere;
        const QString oldFolder = QDir(elsewhere.path()).filePath(QStringLiteral("old"));
        const QString mine = QDir(elsewhere.path()).filePath(QStringLiteral("mine.rpt"));
        QVERIFY(test::writeFile(mine, "mine"));
        const auto printsOn = [&](const QString& stored) {
            f.exec(QStringLiteral("UPDATE vendor SET ordform = ?"), {stored});
            return OrderPrinting::OrderFormFile(f.vendorDb(), dataDir).value();
        };
        const QString here = f.ctx().dataFile(QStringLiteral("ABCordform.rpt"));
        QCOMPARE(printsOn(QStringLiteral("ABCordform.rpt")), here);
        // Where the folder was before it moved: nothing there any more.
        QCOMPARE(printsOn(oldFolder + QStringLiteral("/ABCordform.rpt")), here);
        // The original of a copy, still in its place.
        QVERIFY(QDir().mkpath(oldFolder));
        QVERIFY(test::writeFile(QDir(oldFolder).filePath(QStringLiteral("Ordwell.mdb")), "db"));
        QVERIFY(test::writeFile(QDir(oldFolder).filePath(QStringLiteral("ABCordform.rpt")), "old"));
        QCOMPARE(printsOn(oldFolder + QStringLiteral("/ABCordform.rpt")), here);
        QCOMPARE(printsOn(mine), mine);
        QCOMPARE(Store::storedFilePath(dataDir, here), QStringLiteral("ABCordform.rpt"));
        QCOMPARE(Store::storedFilePath(dataDir, mine), mine);
    }

    // The first print stamps the print date only; each later print adds one reprint and
    // moves both dates on. Cancelled lines stay cancelled.
    void firstPrintAndReprints() {
        test::OrderDataFixture f;
        const QString id = QStringLiteral("ABC1000000");
        f.addOrder(id, QStringLiteral("E"), Money::fromPence(450));
        f.addLine(id, 1, QStringLiteral("A1"), 3, Money::fromPence(150), QStringLiteral("E"));
        f.addLine(id, 2, QStringLiteral("A2"), 0, Money::fromPence(100), QStringLiteral("C"));

        QVERIFY(OrderPrinting::MarkPrinted(f.vendorDb(), id, QDate(2024, 1, 10)));
        QCOMPARE(f.orderStatus(id) + f.lineStatuses(id), QStringLiteral("PPC"));
        QCOMPARE(f.value("orderhead", "printdate", "orderid", id).toString(), QStringLiteral("2024-01-10"));
        QCOMPARE(f.value("orderhead", "reprintcount", "orderid", id).toInt(), 0);
        QVERIFY(f.value("orderhead", "reprintdate", "orderid", id).isNull());

        QVERIFY(OrderPrinting::MarkPrinted(f.vendorDb(), id, QDate(2024, 2, 20)));
        QVERIFY(OrderPrinting::MarkPrinted(f.vendorDb(), id, QDate(2024, 3, 30)));
        QCOMPARE(f.value("orderhead", "reprintcount", "orderid", id).toInt(), 2);
        QCOMPARE(f.value("orderhead", "reprintdate", "orderid", id).toString(), QStringLiteral("2024-03-30"));
        QCOMPARE(f.value("orderhead", "printdate", "orderid", id).toString(), QStringLiteral("2024-03-30"));
        QCOMPARE(f.lineStatuses(id), QStringLiteral("PC"));
    }

    // A reprint of an order whose count was never set (an older file) counts from nothing.
    void reprintOfAnOrderWithoutCount() {
        test::OrderDataFixture f;
        const QString id = QStringLiteral("ABC1000000");
        f.addOrder(id, QStringLiteral("P"));
        f.exec(QStringLiteral("UPDATE orderhead SET printdate = '2024-01-10', reprintcount = NULL"));
        QVERIFY(OrderPrinting::MarkPrinted(f.vendorDb(), id, QDate(2024, 1, 11)));
        QCOMPARE(f.value("orderhead", "reprintcount", "orderid", id).toInt(), 1);
        QVERIFY(!OrderPrinting::MarkPrinted(f.vendorDb(), QStringLiteral("ABC9999999"), QDate(2024, 1, 11)));
    }
};

QTEST_MAIN(TestOrderPrinting)
#include "tst_orderprinting.moc"
