// Orders written as Peppol orders: several real orders checked by the published validators
// (xmllint against the OASIS UBL 2.1 Order schema, Saxon-HE running the Peppol order rules),
// orders refused before anything is written, the window for the parties' details and the
// command line.
#include "OrderDataFixture.h"
#include "catalogue/ItemChecks.h"
#include "common/Sql.h"
#include "orders/OrderWords.h"
#include "orders/PeppolOrder.h"
#include "settings/PeppolPartyDialog.h"
#include "support/ScriptedPrompter.h"
#include "vendors/VendorRepository.h"

#include <QApplication>
#include <QDir>
#include <QFile>
#include <QLineEdit>
#include <QProcess>
#include <QRegularExpression>
#include <QTemporaryDir>
#include <QTest>

using namespace ordwell;

namespace {

const QString PeppolData = QStringLiteral(ORDWELL_PEPPOL_DATA);

QString run(const QString& program, const QStringList& arguments, int* exitCode) {
    QProcess process;
    process.setProcessChannelMode(QProcess::MergedChannels);
    process.start(program, arguments);
    if (!process.waitForFinished(300000)) {
        *exitCode = -1;
        return QStringLiteral("%1 did not finish: %2").arg(program, process.errorString());
    }
    *exitCode = process.exitStatus() == QProcess::NormalExit ? process.exitCode() : -1;
    return QString::fromUtf8(process.readAll());
}

// Every failed assertion the Peppol rules report for each file of `folder`, by file name.
QMap<QString, QStringList> ruleFailures(const QString& folder, QString* trouble) {
    QTemporaryDir reports;
    int code = 0;
    const QString output = run(QStringLiteral("java"),
                               {QStringLiteral("-cp"), QStringLiteral("/usr/share/java/Saxon-HE.jar"),
                                QStringLiteral("net.sf.saxon.Transform"), QStringLiteral("-s:") + folder,
                                QStringLiteral("-o:") + reports.path(),
                                QStringLiteral("-xsl:") + PeppolData + QStringLiteral("/rules/PEPPOLBIS-T01.xslt")},
                               &code);
    QMap<QString, QStringList> failures;
    if (code != 0) {
        *trouble = output;
        return failures;
    }
    static const QRegularExpression failed(
        QStringLiteral("<svrl:failed-assert[^>]*id=\"([^\"]+)\"[^>]*flag=\"([^\"]+)\""));
    for (const QString& name : QDir(folder).entryList(QDir::Files)) {
        const QString svrl = QString::fromUtf8(test::fileContents(QDir(reports.path()).filePath(name)));
        if (!svrl.contains(QStringLiteral("schematron-output")))
            *trouble += name + QStringLiteral(": no report\n");
        auto it = failed.globalMatch(svrl);
        QStringList found;
        while (it.hasNext()) {
            const auto m = it.next();
            found << m.captured(1) + QLatin1Char('/') + m.captured(2);
        }
        failures[name] = found;
    }
    return failures;
}

QString xmlText(const QString& path) {
    return QString::fromUtf8(test::fileContents(path));
}

} // namespace

class TestPeppol : public test::StrictTest {
    Q_OBJECT

private slots:
    void initTestCase() { test::initTestEnvironment(); }

    // Three real orders, one of them 999 lines long, pass the schema and every rule; a document
    // spoiled on purpose fails both, so a pass means something. Exporting marks the order and
    // its live lines exported, the cancelled line stays cancelled and is left out.
    void realOrdersPassTheSchemaAndTheRules() {
        test::OrderDataFixture f;
        f.giveParties();
        f.addItem(QStringLiteral("CB1"), QStringLiteral("Crème brûlée pots"), Money::fromPence(1250), 6);
        f.addItem(QStringLiteral("SV2"), QStringLiteral("Salt & vinegar <large>"), Money::fromTenThousandths(1234));
        f.addItem(QStringLiteral("GONE"), QStringLiteral("Taken out later"), Money::fromPence(100));
        f.exec(QStringLiteral("UPDATE items SET gtin = '05012345678900', unitcode = 'KGM' WHERE code = 'CB1'"));
        const QString first = QStringLiteral("ABC1000001");
        f.addOrder(first, OrderStatus::Printed, {}, QStringLiteral("Deliver to the back door"),
                   QStringLiteral("Ring first & wait"));
        f.addLine(first, 1, QStringLiteral("CB1"), 2, Money::fromPence(1250), OrderStatus::Printed);
        f.addLine(first, 2, QStringLiteral("SV2"), 7, Money::fromTenThousandths(1234), OrderStatus::Printed);
        f.addLine(first, 3, QStringLiteral("CB1"), 5, Money::fromPence(1250), OrderStatus::Cancelled);
        f.addLine(first, 3, QStringLiteral("GONE"), 1, Money::fromPence(100), OrderStatus::Printed);
        f.removeItem(QStringLiteral("GONE"));
        const QString big = QStringLiteral("ABC1000002");
        f.addOrder(big, OrderStatus::Entered);
        Money bigTotal;
        for (int line = 1; line <= 999; ++line) {
            const Money price = Money::fromTenThousandths(10000 + line * 37);
            f.addLine(big, line, line % 2 ? QStringLiteral("CB1") : QStringLiteral("SV2"), line % 13 + 1, price,
                      OrderStatus::Entered);
            bigTotal += (price * (line % 13 + 1)).roundedToPence();
        }
        const QString live = QStringLiteral("ABC1000003");
        f.addOrder(live, OrderStatus::Live);
        f.addLine(live, 1, QStringLiteral("SV2"), 1, Money::fromTenThousandths(1234), OrderStatus::Live);

        QTemporaryDir out;
        for (const QString& id : {first, big, live}) {
            const auto written = PeppolOrder::exportOrder(f.systemDb(), f.vendorDb(), QStringLiteral("Acme Supplies"),
                                                          out.filePath(PeppolOrder::FileName(id)), id);
            QVERIFY2(written.outcome == OrderExport::Outcome::Exported, qPrintable(written.message));
            QCOMPARE(f.orderStatus(id), OrderStatus::Exported);
        }
        QCOMPARE(f.lineStatuses(first), QStringLiteral("XXCX"));

        const QString firstXml = xmlText(out.filePath(PeppolOrder::FileName(first)));
        QVERIFY(firstXml.contains(QStringLiteral("<cbc:Name>Crème brûlée pots</cbc:Name>")));
        QVERIFY(firstXml.contains(QStringLiteral("Salt &amp; vinegar &lt;large&gt;")));
        QVERIFY(firstXml.contains(QStringLiteral("<cbc:Quantity unitCode=\"KGM\">2</cbc:Quantity>")));
        QVERIFY(firstXml.contains(QStringLiteral("<cbc:ID schemeID=\"0160\">05012345678900</cbc:ID>")));
        QVERIFY(firstXml.contains(QStringLiteral("<cbc:Name>GONE</cbc:Name>")));
        QVERIFY(firstXml.contains(QStringLiteral("<cbc:PriceAmount currencyID=\"GBP\">0.1234</cbc:PriceAmount>")));
        // 2 x 12.50 + 7 x 0.1234 (0.86 to the penny) + 1 x 1.00; the cancelled line left out.
        QVERIFY(firstXml.contains(QStringLiteral("<cbc:PayableAmount currencyID=\"GBP\">26.86</cbc:PayableAmount>")));
        QCOMPARE(firstXml.count(QStringLiteral("<cac:OrderLine>")), 3);
        const QString bigXml = xmlText(out.filePath(PeppolOrder::FileName(big)));
        QCOMPARE(bigXml.count(QStringLiteral("<cac:OrderLine>")), 999);
        QVERIFY(bigXml.contains(QStringLiteral("<cbc:PayableAmount currencyID=\"GBP\">%1</cbc:PayableAmount>")
                                    .arg(bigTotal.toPlainString())));

        // The spoiled copy: its customisation left out, an element UBL does not have, and its
        // total changed.
        QString spoiled = firstXml;
        spoiled.replace(QStringLiteral("<cbc:IssueDate>"),
                        QStringLiteral("<cbc:Colour>red</cbc:Colour><cbc:IssueDate>"));
        spoiled.remove(QRegularExpression(QStringLiteral("<cbc:CustomizationID>[^<]*</cbc:CustomizationID>")));
        spoiled.replace(QStringLiteral(">26.86</cbc:PayableAmount>"), QStringLiteral(">99.99</cbc:PayableAmount>"));
        spoiled.replace(QStringLiteral(">26.86</cbc:LineExtensionAmount>"),
                        QStringLiteral(">99.99</cbc:LineExtensionAmount>"));
        QTemporaryDir bad;
        QVERIFY(test::writeFile(bad.filePath(QStringLiteral("spoiled.xml")), spoiled.toUtf8()));

        const QString schema = PeppolData + QStringLiteral("/ubl-2.1/maindoc/UBL-Order-2.1.xsd");
        int code = 0;
        QStringList files;
        for (const QString& name : QDir(out.path()).entryList(QDir::Files))
            files << out.filePath(name);
        QString said = run(QStringLiteral("xmllint"),
                           QStringList{QStringLiteral("--noout"), QStringLiteral("--schema"), schema} + files, &code);
        QVERIFY2(code == 0, qPrintable(said));
        QCOMPARE(said.count(QStringLiteral(" validates")), 3);
        said = run(QStringLiteral("xmllint"),
                   {QStringLiteral("--noout"), QStringLiteral("--schema"), schema,
                    bad.filePath(QStringLiteral("spoiled.xml"))},
                   &code);
        QVERIFY2(code != 0 && said.contains(QStringLiteral("Colour")), qPrintable(said));

        QString trouble;
        const auto failures = ruleFailures(out.path(), &trouble);
        QVERIFY2(trouble.isEmpty(), qPrintable(trouble));
        QCOMPARE(failures.size(), 3);
        for (auto it = failures.begin(); it != failures.end(); ++it)
            QVERIFY2(it.value().isEmpty(), qPrintable(it.key() + QStringLiteral(": ") + it.value().join(u' ')));
        const auto spoiledFailures = ruleFailures(bad.path(), &trouble);
        QVERIFY2(trouble.isEmpty(), qPrintable(trouble));
        const QStringList caught = spoiledFailures.value(QStringLiteral("spoiled.xml"));
        QVERIFY2(caught.contains(QStringLiteral("PEPPOL-T01-B00101/fatal")), qPrintable(caught.join(u' ')));
        QVERIFY2(caught.contains(QStringLiteral("PEPPOL-T01-R008/fatal")), qPrintable(caught.join(u' ')));
    }

    // Refused before anything is written, the order left as it was: parties lacking what the
    // format needs (every missing detail named), a wrong GS1 check digit, an order with nothing
    // left to order, and one already received.
    void refusedBeforeWriting() {
        test::OrderDataFixture f;
        f.addItem(QStringLiteral("A1"), QStringLiteral("Apples"), Money::fromPence(300));
        const QString id = QStringLiteral("ABC1000001");
        f.addOrder(id, OrderStatus::Printed);
        f.addLine(id, 1, QStringLiteral("A1"), 3, Money::fromPence(300), OrderStatus::Printed);
        QTemporaryDir out;
        const QString path = out.filePath(PeppolOrder::FileName(id));
        const auto attempt = [&](const QString& orderId) {
            return PeppolOrder::exportOrder(f.systemDb(), f.vendorDb(), QStringLiteral("Acme Supplies"), path, orderId);
        };

        QVERIFY(PeppolPartyStore::save(f.systemDb(), PeppolSide::Organisation,
                                       {QStringLiteral("0088"),
                                        QStringLiteral("5012345000008"),
                                        QStringLiteral("Head Office Ltd"),
                                        QStringLiteral("GB"),
                                        {}}));
        auto result = attempt(id);
        QCOMPARE(result.outcome, OrderExport::Outcome::Failed);
        for (const char* named : {"the organisation's currency", "the vendor's electronic address scheme",
                                  "the vendor's electronic address", "the vendor's legal name", "the vendor's country"})
            QVERIFY2(result.message.contains(QLatin1String(named)), qPrintable(result.message));
        QVERIFY2(!result.message.contains(QLatin1String("organisation's electronic address")),
                 qPrintable(result.message));

        f.giveParties();
        QVERIFY(Sql::run(f.vendorDb(), QStringLiteral("UPDATE vendor SET peppolid = '7300010000002'")));
        result = attempt(id);
        QCOMPARE(result.outcome, OrderExport::Outcome::Failed);
        QVERIFY2(result.message.contains(QLatin1String("not a valid GS1 location number")), qPrintable(result.message));

        f.giveParties();
        const QString cancelledOnly = QStringLiteral("ABC1000002");
        f.addOrder(cancelledOnly, OrderStatus::Printed);
        f.addLine(cancelledOnly, 1, QStringLiteral("A1"), 3, Money::fromPence(300), OrderStatus::Cancelled);
        result = attempt(cancelledOnly);
        QVERIFY2(result.message.contains(QLatin1String("no line left")), qPrintable(result.message));
        const QString received = QStringLiteral("ABC1000003");
        f.addOrder(received, OrderStatus::Received);
        result = attempt(received);
        QVERIFY2(result.message.contains(QLatin1String("received or cancelled")), qPrintable(result.message));
        QVERIFY(!QFile::exists(path));
        QCOMPARE(f.orderStatus(id), OrderStatus::Printed);
        QCOMPARE(f.orderStatus(cancelledOnly), OrderStatus::Printed);

        // Given everything, it goes; a second time the file is there already and kept.
        QCOMPARE(attempt(id).outcome, OrderExport::Outcome::Exported);
        QCOMPARE(attempt(id).outcome, OrderExport::Outcome::FileExists);
    }

    // The details window: a wrong code is refused with the focus on its box and nothing kept;
    // the regional settings suggest the country and currency; what is saved is read back.
    void detailsWindowChecksAndKeeps() {
        test::OrderDataFixture f;
        {
            PeppolPartyDialog dialog(f.systemDb(), PeppolSide::Organisation, QStringLiteral("Head Office"),
                                     f.prompter());
            QCOMPARE(dialog.box(PeppolRules::Country)->text(), QStringLiteral("GB"));
            QCOMPARE(dialog.box(PeppolRules::Currency)->text(), QStringLiteral("GBP"));
            dialog.box(PeppolRules::Scheme)->setText(QStringLiteral("0088"));
            dialog.box(PeppolRules::Endpoint)->setText(QStringLiteral(" 5012345000008 "));
            dialog.box(PeppolRules::LegalName)->setText(QStringLiteral("Head Office Ltd"));
            dialog.box(PeppolRules::Country)->setText(QStringLiteral("zz"));
            dialog.show();
            QVERIFY(QTest::qWaitForWindowActive(&dialog));
            f.prompter().expect(QStringLiteral("\"ZZ\" is not a country code: give the country's two letters, for "
                                               "example GB."));
            QVERIFY(!dialog.save());
            QCOMPARE(QApplication::focusWidget(), dialog.box(PeppolRules::Country));
            QCOMPARE(PeppolPartyStore::load(f.systemDb(), PeppolSide::Organisation).value(), PeppolParty{});
            dialog.box(PeppolRules::Country)->setText(QStringLiteral("ie"));
            QVERIFY(dialog.save());
        }
        const PeppolParty kept = PeppolPartyStore::load(f.systemDb(), PeppolSide::Organisation).value();
        QCOMPARE(kept, (PeppolParty{QStringLiteral("0088"), QStringLiteral("5012345000008"),
                                    QStringLiteral("Head Office Ltd"), QStringLiteral("IE"), QStringLiteral("GBP")}));
        PeppolPartyDialog vendor(f.vendorDb(), PeppolSide::Vendor, QStringLiteral("Acme Supplies"), f.prompter());
        QVERIFY(!vendor.findChild<QLineEdit*>(QStringLiteral("txtpeppol_4")));
        vendor.box(PeppolRules::Scheme)->setText(QStringLiteral("1234"));
        f.prompter().expect(QStringLiteral("\"1234\" is not an electronic address scheme the Peppol network knows: "
                                           "give its four digits, for example 0088 for a GS1 location number (GLN)."));
        QVERIFY(!vendor.save());

        // An item's unit: empty for pieces, else a two- or three-character code, kept upper-cased.
        QCOMPARE(ItemChecks::unitFrom(QStringLiteral(" kgm ")), QStringLiteral("KGM"));
        QCOMPARE(ItemChecks::unitFrom(QString()), QString());
        QVERIFY(!ItemChecks::unitFrom(QStringLiteral("kilo")));
        QVERIFY(!ItemChecks::unitFrom(QStringLiteral("k")));
    }

    // The command line: written and marked; refused over an existing file (exit 1) and without
    // its --out (exit 2).
    void commandLine() {
        test::OrderDataFixture f;
        f.giveParties();
        QVERIFY(VendorRepository::addVendor(f.systemDb(), QStringLiteral("Acme Supplies"), QStringLiteral("ABC")));
        f.addItem(QStringLiteral("A1"), QStringLiteral("Apples"), Money::fromPence(300));
        const QString id = QStringLiteral("ABC1000001");
        f.addOrder(id, OrderStatus::Printed);
        f.addLine(id, 1, QStringLiteral("A1"), 3, Money::fromPence(300), OrderStatus::Printed);
        QTemporaryDir out;
        QStringList arguments{QStringLiteral("--data-dir"),      f.ctx().dataDir(),
                              QStringLiteral("--vendor"),        QStringLiteral("ABC"),
                              QStringLiteral("--export-peppol"), QStringLiteral("abc1000001")};
        if (test::onTestServer())
            arguments << QStringLiteral("--server") << test::testServer();
        test::Finished finished = test::runHeadless(QStringLiteral(ORDWELL_EXE), arguments);
        QCOMPARE(finished.code, 2);
        QVERIFY2(finished.err.contains(QStringLiteral("--export-peppol needs --out FILE.")), qPrintable(finished.err));
        arguments << QStringLiteral("--out") << out.filePath(QStringLiteral("order.xml"));
        finished = test::runHeadless(QStringLiteral(ORDWELL_EXE), arguments);
        QVERIFY2(finished.code == 0, qPrintable(finished.err));
        QVERIFY(
            xmlText(out.filePath(QStringLiteral("order.xml"))).contains(QStringLiteral("<cbc:ID>ABC1000001</cbc:ID>")));
        finished = test::runHeadless(QStringLiteral(ORDWELL_EXE), arguments);
        QCOMPARE(finished.code, 1);
        QVERIFY2(finished.err.contains(QStringLiteral("already exists")), qPrintable(finished.err));
    }
};

QTEST_MAIN(TestPeppol)
#include "tst_peppol.moc"
