#include "CatalogueSession.h"

#include <QLabel>
#include <QLockFile>
#include <QMdiArea>
#include <QProcess>
#include <QPushButton>
#include <QTest>

using namespace ordwell;

namespace {

const QString Completed = QStringLiteral("The import has completed, please click on Exit");
const QString GoodList = QStringLiteral("abc1,Apple,1,1,3.00,31/12/2030\nOLD1,Pear,1,1,1.00,01/01/2020\nB2,Plum,2,1,"
                                        "0.50,31/12/2030\n");

using test::Finished;

// The real program, started with no display at all.
Finished runProgram(const QStringList& arguments) {
    return test::runHeadless(QStringLiteral(ORDWELL_EXE), arguments);
}

} // namespace

class TestImportRun : public test::StrictTest {
    Q_OBJECT
private slots:
    void initTestCase() { test::initTestEnvironment(); }

    void headlessImport() {
        test::CatalogueSession s;
        VendorRepository::addVendor(s.ctx().systemDb(), QStringLiteral("Gone Ltd"), QStringLiteral("GON"));
        Store::CreateVendorDatabase(s.ctx().dataDir(), QStringLiteral("GON"));
        VendorRepository::deactivateVendor(s.ctx().systemDb(), QStringLiteral("GON"));
        const QString dir = s.ctx().dataDir();
        const QString good = s.ctx().DesktopPath + QStringLiteral("/good.csv");
        const QString bad = s.ctx().DesktopPath + QStringLiteral("/bad.csv");
        QVERIFY(test::writeFile(good, GoodList.toUtf8()));
        QVERIFY(test::writeFile(bad, "C3,Fig,1,1,1.00,31/12/2030\nC4,Date,one,1,1.00,31/12/2030\nC5,Kiwi,1,1,1.00,"
                                     "31/12/2030\n"));
        const QStringList base = {QStringLiteral("--data-dir"), dir, QStringLiteral("--vendor")};

        Finished run = runProgram(base + QStringList{QStringLiteral("tst"), QStringLiteral("--import-items"), good});
        QCOMPARE(run.code, 0);
        QCOMPARE(run.out,
                 QStringLiteral("There were 1 expired prices, these items prices have been set to \u00a30.00\n") +
                     Completed + QLatin1Char('\n'));
        QCOMPARE(run.err, QString());
        QCOMPARE(s.count(QStringLiteral("items")), 3);

        run = runProgram(base + QStringList{QStringLiteral("TST"), QStringLiteral("--import-items"), bad});
        QCOMPARE(run.code, 1);
        QCOMPARE(run.out, QString());
        QCOMPARE(run.err,
                 QStringLiteral("An error has been found in ") + bad +
                     QStringLiteral(" the line C4,Date,one,1,1.00,31/12/2030 is incorrect, please correct this "
                                    "error and re-run the import\n"));
        QCOMPARE(s.count(QStringLiteral("items")), 4); // C3 kept, C5 never read

        const struct {
            QString vendor;
            QString file;
            QString reason;
        } refused[] = {
            {QStringLiteral("XYZ"), good, QStringLiteral("no vendor with the code XYZ")},
            {QStringLiteral("GON"), good, QStringLiteral("deactivated")},
            {QStringLiteral("TST"), dir + QStringLiteral("/missing.csv"), QStringLiteral("does not exist")},
        };
        for (const auto& r : refused) {
            run = runProgram(base + QStringList{r.vendor, QStringLiteral("--import-items"), r.file});
            QCOMPARE(run.code, 2);
            QVERIFY2(run.err.contains(r.reason) && run.err.count(QLatin1Char('\n')) == 1, qPrintable(run.err));
        }

        // A running copy holds the lock: the import keeps out, and a held import keeps it out.
        QLockFile lock(s.ctx().dataFile(Store::SystemLockFileName));
        QVERIFY(lock.tryLock(0));
        run = runProgram(base + QStringList{QStringLiteral("TST"), QStringLiteral("--import-items"), good});
        QCOMPARE(run.code, 2);
        QVERIFY2(run.err.contains(QLatin1String("in use")), qPrintable(run.err));
        lock.unlock();
    }

    // From the menu: the progress window shows the counts and the texts, stays until Exit, and
    // the menus return to the vendor's; an incorrect line removes the window; no file, nothing.
    void importFromTheMenu() {
        test::CatalogueSession s;
        const QString good = s.ctx().DesktopPath + QStringLiteral("/good.csv");
        QVERIFY(test::writeFile(good, GoodList.toUtf8()));
        s.prompter().queueFile(good);
        s.window->triggerMenu(QStringLiteral("mnuimpitms"));
        QCOMPARE(s.prompter().fileRequests.size(), 1);
        QCOMPARE(s.prompter().fileRequests[0].filters.first(), QStringLiteral("Comma Seperated Variable (*.csv)"));
        QCOMPARE(s.prompter().fileRequests[0].startFolder, s.ctx().DesktopPath);
        QVERIFY(s.prompter().messages.isEmpty());
        QWidget* form = s.window->findChild<QWidget*>(QStringLiteral("frmupload"));
        QVERIFY(form);
        auto text = [form](const QString& name) { return test::child<QLabel>(form, name)->text(); };
        QCOMPARE(text(QStringLiteral("lblcount_0")), QStringLiteral("3"));
        QCOMPARE(text(QStringLiteral("lblcount_1")), QStringLiteral("3"));
        QCOMPARE(text(QStringLiteral("lblinfo")), Completed);
        QCOMPARE(text(QStringLiteral("lblresetprices")),
                 QStringLiteral("There were 1 expired prices, these items prices have been set to \u00a30.00"));
        QVERIFY(test::child<QLabel>(form, QStringLiteral("lblcount_0"))->accessibleName().isEmpty());
        QVERIFY(s.enabled(QStringLiteral("mnuimpitms")));
        QCOMPARE(s.count(QStringLiteral("items")), 3);
        QPointer<QWidget> watch(form);
        test::child<QPushButton>(form, QStringLiteral("cmdexit"))->click();
        QTRY_VERIFY(!watch);
        QVERIFY(s.window->mdiArea()->subWindowList().isEmpty());

        const QString bad = s.ctx().DesktopPath + QStringLiteral("/bad.csv");
        QVERIFY(test::writeFile(bad, "A9,Apple\n"));
        s.prompter().queueFile(bad);
        s.window->triggerMenu(QStringLiteral("mnuimpitms"));
        QCOMPARE(s.prompter().messages.size(), 1);
        QCOMPARE(s.prompter().messages[0].title, QStringLiteral("Incorrect File format"));
        QTRY_VERIFY(s.window->mdiArea()->subWindowList().isEmpty());
        QVERIFY(s.enabled(QStringLiteral("mnuimpitms")));

        s.prompter().clear();
        s.prompter().queueFile(std::nullopt);
        s.window->triggerMenu(QStringLiteral("mnuimpitms"));
        QVERIFY(s.prompter().messages.isEmpty());
        QVERIFY(s.window->mdiArea()->subWindowList().isEmpty());
        QVERIFY(s.enabled(QStringLiteral("mnuimpitms")));
    }
};

QTEST_MAIN(TestImportRun)
#include "tst_importrun.moc"
