#include "shell/MainWindow.h"
#include "shell/SplashWindow.h"
#include "support/TestSupport.h"
#include "vendors/VendorRecords.h"

#include <QLabel>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QTest>

using namespace ordwell;

// What a screen reader hears from the labels that show values: their text, never a fixed name.
class TestAccessibility : public test::StrictTest {
    Q_OBJECT
private slots:
    void initTestCase() { test::initTestEnvironment(); }

    void statusPanelsAndValueLabelsReadTheirText() {
        test::TestContext tc;
        AppContext& ctx = tc.context();
        test::storeOrganisationDetails(ctx);
        VendorDetails details;
        details[VendorField::CustomerId] = QStringLiteral("C1");
        details[VendorField::Address1] = QStringLiteral("1 Quay");
        details[VendorField::County] = QStringLiteral("Kent");
        details[VendorField::Postcode] = QStringLiteral("CT1 1AA");
        details[VendorField::RepName] = QStringLiteral("Ann");
        for (const char* code : {"ABC", "DEF", "GHI"}) {
            const QString c = QString::fromLatin1(code);
            QVERIFY(VendorRecords::CreateVendorEntry(ctx.systemDb(), ctx.dataDir(), c + QStringLiteral(" Ltd"), c));
            QVERIFY(VendorRecords::SaveVendorDetails(ctx.dataDir(), c, details, SaveMode::New));
        }
        auto main = test::openMainWindow(ctx);
        auto* vendorPanel = test::child<QLabel>(main.get(), QStringLiteral("sbPanel_1"));
        QCOMPARE(vendorPanel->text(), QStringLiteral("No Vendor Selected"));
        main->ShowStatus(QStringLiteral("O'Brien's Supplies"));
        QVERIFY(vendorPanel->text().contains(QStringLiteral("O'Brien's Supplies")));
        for (int i = 1; i <= 3; ++i) {
            auto* panel = test::child<QLabel>(main.get(), QStringLiteral("sbPanel_%1").arg(i));
            QVERIFY(!panel->accessibleDescription().isEmpty());
        }
        QCOMPARE(test::labelsHidingTheirText(main.get()), QStringList());

        // Each landed window in turn, closed through its close box (which stands for Exit).
        for (const char* entry : {"mnusysdefault", "mnuedvend", "mnudevend"}) {
            main->triggerMenu(QString::fromLatin1(entry));
            QCOMPARE(main->mdiArea()->subWindowList().size(), 1);
            QCOMPARE(test::labelsHidingTheirText(main.get()), QStringList());
            if (auto* position = main->findChild<QLabel*>(QStringLiteral("lblreccount")))
                QCOMPARE(position->text(), QStringLiteral("Record 1 of 3"));
            main->mdiArea()->subWindowList().first()->close();
            QTRY_VERIFY(main->mdiArea()->subWindowList().isEmpty());
        }
    }

    void splashHasTitleAndReadableStatus() {
        test::TestContext tc;
        SplashWindow splash(tc.context());
        QCOMPARE(splash.windowTitle(), QStringLiteral("Ordwell"));
        splash.setStatus(QStringLiteral("Opening the database"));
        QCOMPARE(test::labelsHidingTheirText(&splash), QStringList());
    }
};

QTEST_MAIN(TestAccessibility)
#include "tst_accessibility.moc"
