// Files under the program that are damaged, read-only or held by another program: each is
// told plainly, nothing stored changes, and the program goes on once the cause is gone.
#include "LockHolder.h"
#include "PrivateDisk.h"
#include "app/VendorSession.h"
#include "common/Sql.h"
#include "shell/MainWindow.h"
#include "shell/Program.h"
#include "store/DatabaseFile.h"
#include "store/Store.h"
#include "support/DatabaseDump.h"
#include "support/TestSupport.h"
#include "vendors/VendorChooserForm.h"
#include "vendors/VendorRecordsForm.h"
#include "vendors/VendorRepository.h"

#include <QApplication>
#include <QComboBox>
#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QLabel>
#include <QLineEdit>
#include <QProcess>
#include <QPushButton>
#include <QRegularExpression>
#include <QTest>

using namespace ordwell;

namespace {

// Every file under `folder` with its contents, as "name: bytes".
QMap<QString, QByteArray> folderContents(const QString& folder) {
    QMap<QString, QByteArray> files;
    QDirIterator it(folder, QDir::Files | QDir::Hidden, QDirIterator::Subdirectories);
    while (it.hasNext()) {
        const QString path = it.next();
        files.insert(QDir(folder).relativeFilePath(path), test::fileContents(path));
    }
    return files;
}

// Opens the vendor chooser from the menu, picks `entry` and presses Select.
void chooseVendor(MainWindow& window, AppContext& ctx, const QString& entry) {
    window.triggerMenu(QStringLiteral("mnuswven"));
    QPointer<VendorChooserForm> form = window.findChild<VendorChooserForm*>(QStringLiteral("frmswvend"));
    QVERIFY(form);
    auto* list = test::child<QComboBox>(form, QStringLiteral("cmbvendors"));
    QTRY_VERIFY(list->count() > 0);
    list->setCurrentIndex(list->findText(entry));
    QCOMPARE(list->currentText(), entry);
    QTest::mouseClick(test::child<QPushButton>(form, QStringLiteral("cmdbutton_%1").arg(VendorChooserForm::Select)),
                      Qt::LeftButton);
    QTRY_VERIFY(form.isNull());
    QCOMPARE(ctx.OpenWindowCount, 0);
}

} // namespace

class TestFileFaults : public test::StrictTest {
    Q_OBJECT

private slots:
    void initTestCase() {
        test::initTestEnvironment();
        QApplication::setQuitOnLastWindowClosed(false);
        QVERIFY2(test::privateNamespaceProblem().isEmpty(), qPrintable(test::privateNamespaceProblem()));
    }

    // A vendor's file gone or damaged since the last run: choosing that vendor says so and
    // opens nothing, the file is left for the user to restore, and the other vendor opens and
    // takes changes as before.
    void damagedVendorFile_data() {
        QTest::addColumn<QString>("warning"); // logged by the store, empty when none
        QTest::newRow("missing") << QString();
        QTest::newRow("emptied") << QString();
        QTest::newRow("cut short") << QStringLiteral("^SQLite result 11 ");
        QTest::newRow("overwritten") << QStringLiteral("^SQLite result 26 ");
    }
    void damagedVendorFile() {
        QFETCH(QString, warning);
        const QLatin1String damage(QTest::currentDataTag());
        test::TestContext tc;
        AppContext& ctx = tc.context();
        test::storeOrganisationDetails(ctx);
        for (const char* code : {"AAA", "BBB"}) {
            const QString c = QLatin1String(code);
            QVERIFY(VendorRepository::addVendor(ctx.systemDb(), c + QStringLiteral(" Ltd"), c));
            QVERIFY(Store::CreateVendorDatabase(ctx.dataDir(), c));
            {
                auto db = Store::OpenVendorDatabase(ctx.dataDir(), Store::vendorFileName(c), QStringLiteral("setup"));
                QVERIFY(db);
                // Enough rows that the file has many pages to lose.
                QVERIFY(Sql::run(*db, QStringLiteral("WITH RECURSIVE n(i) AS (SELECT 0 UNION ALL SELECT i + 1 FROM "
                                                     "n WHERE i < 499) INSERT INTO items (code, descr, packqty, "
                                                     "defqty, price, priceexp) SELECT printf('IT%04d', i), 'Item ' || "
                                                     "i, 1, 1, 100, '2099-12-31' FROM n")));
            }
            DatabaseFile::close(QStringLiteral("setup"));
        }
        const QString damaged = Store::vendorDatabasePath(ctx.dataDir(), QStringLiteral("BBB"));
        const QByteArray whole = test::fileContents(damaged);
        if (damage == "missing") {
            QVERIFY(QFile::remove(damaged));
        } else if (damage == "emptied") {
            QVERIFY(test::writeFile(damaged, QByteArray()));
        } else if (damage == "cut short") {
            QVERIFY(test::writeFile(damaged, whole.left(whole.size() / 2)));
        } else {
            QVERIFY(test::writeFile(damaged, QByteArray(whole.size(), 'x')));
        }
        const auto filesBefore = folderContents(ctx.dataDir());
        const auto systemBefore = test::databaseDump(Store::systemDatabasePath(ctx.dataDir()));

        auto window = test::openMainWindow(ctx);
        if (!warning.isEmpty())
            QTest::ignoreMessage(QtWarningMsg, QRegularExpression(warning));
        chooseVendor(*window, ctx, QStringLiteral("BBB - BBB Ltd"));
        QCOMPARE(tc.prompter().messages.size(), 1);
        const test::ShownMessage failed = tc.prompter().messages.first();
        QCOMPARE(failed.icon, MessageIcon::Critical);
        QVERIFY2(failed.text.startsWith(QStringLiteral("The vendor's database could not be opened")),
                 qPrintable(failed.text));
        QVERIFY2(failed.text.contains(QDir::toNativeSeparators(damaged)), qPrintable(failed.text));
        QVERIFY(!ctx.vendorSession().isOpen());
        QCOMPARE(window->findChild<QLabel*>(QStringLiteral("sbPanel_1"))->text(), QStringLiteral("No Vendor Selected"));
        QCOMPARE(folderContents(ctx.dataDir()), filesBefore);
        QCOMPARE(test::databaseDump(Store::systemDatabasePath(ctx.dataDir())), systemBefore);

        tc.prompter().clear();
        chooseVendor(*window, ctx, QStringLiteral("AAA - AAA Ltd"));
        QVERIFY(tc.prompter().messages.isEmpty());
        QCOMPARE(ctx.CurrentVendorCode, QStringLiteral("AAA"));
        QCOMPARE(window->findChild<QLabel*>(QStringLiteral("sbPanel_1"))->text(), QStringLiteral("AAA Ltd"));
        QCOMPARE(Sql::scalar(ctx.vendorDb(), QStringLiteral("SELECT count(*) FROM items"))->toInt(), 500);
        QVERIFY(Sql::run(ctx.vendorDb(), QStringLiteral("UPDATE items SET price = 200 WHERE code = 'IT0001'")));
        ctx.vendorSession().close();
    }

    // A data folder that cannot be written to stops the start with a message saying so and
    // leaves every file as it was; the next start, with the folder writable, goes ahead. (The
    // folder is checked before anything in it is looked at, so a first run meets the same check.)
    void readOnlyDataFolderAtStart() {
        test::TestFolders folders;
        QVERIFY(Store::CreateSystemDatabase(folders.dataDir()));
        {
            auto db = Store::OpenSystemDatabase(folders.dataDir());
            QVERIFY(db);
            QVERIFY(Sql::run(*db, QStringLiteral("INSERT INTO Sysset (location, add1, county, postcode, contact, "
                                                 "telephone, email) VALUES ('Acme', '1 Road', 'Kent', 'CT11AA', "
                                                 "'Ann', '0123', 'a@b.c')")));
        }
        DatabaseFile::close(Store::SystemConnection);
        const auto before = folderContents(folders.dataDir());
        {
            test::ReadOnlyFolder readOnly(folders.dataDir());
            QVERIFY2(readOnly.problem().isEmpty(), qPrintable(readOnly.problem()));
            test::ScriptedPrompter prompter;
            Program program(folders.options(), &prompter);
            QVERIFY(!program.start());
            QVERIFY(!program.mainWindow());
            QCOMPARE(prompter.messages.size(), 1);
            QCOMPARE(prompter.messages.first().icon, MessageIcon::Critical);
            QCOMPARE(prompter.messages.first().text,
                     QStringLiteral("Ordwell cannot start because its data folder \"%1\" cannot be written to.")
                         .arg(QDir::toNativeSeparators(folders.dataDir())));
        }
        QCOMPARE(folderContents(folders.dataDir()), before);

        test::ScriptedPrompter prompter;
        Program program(folders.options(), &prompter);
        QVERIFY(program.start());
        QVERIFY(program.mainWindow());
        QVERIFY(prompter.messages.isEmpty());
    }

    // Another program is in the middle of a write to the system database when a new vendor is
    // saved: the user is told the database is in use, no entry and no vendor file are made, and
    // the same save works once the other program lets go.
    void systemDatabaseBusyWhenAVendorIsSaved() {
        test::TestContext tc;
        AppContext& ctx = tc.context();
        test::storeOrganisationDetails(ctx);
        const QString systemPath = Store::systemDatabasePath(ctx.dataDir());
        QPointer<VendorRecordsForm> form = new VendorRecordsForm(ctx);
        form->beginToolWindow();
        form->show();
        form->activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(form));
        auto button = [&form](int i) { return test::child<QPushButton>(form, QStringLiteral("cmdbutton_%1").arg(i)); };
        button(VendorRecordsForm::AddNew)->click();
        QTest::keyClicks(test::child<QLineEdit>(form, QStringLiteral("txtcomp_0")), QStringLiteral("Held Ltd"));
        QTest::keyClicks(test::child<QLineEdit>(form, QStringLiteral("txtcomp_1")), QStringLiteral("HLD"));
        const auto before = test::databaseDump(systemPath);

        QProcess holder;
        QVERIFY(test::startLockHolder(holder, systemPath));
        QTest::ignoreMessage(QtWarningMsg,
                             QRegularExpression(QStringLiteral("^SQLite result 5 .*INSERT INTO vendors")));
        button(VendorRecordsForm::Save)->click();
        QCOMPARE(tc.prompter().messages.size(), 1);
        const test::ShownMessage failed = tc.prompter().messages.first();
        QCOMPARE(failed.icon, MessageIcon::Critical);
        QVERIFY2(failed.text.contains(QLatin1String("in use by another program")), qPrintable(failed.text));
        QCOMPARE(test::databaseDump(systemPath), before);
        QVERIFY(!QFileInfo::exists(Store::vendorDatabasePath(ctx.dataDir(), QStringLiteral("HLD"))));
        // The add is still under way, the boxes as typed.
        QCOMPARE(form->state(), VendorRecordsForm::State::AddingIdentity);
        QCOMPARE(test::child<QLineEdit>(form, QStringLiteral("txtcomp_1"))->text(), QStringLiteral("HLD"));

        holder.closeWriteChannel();
        QVERIFY(holder.waitForFinished(10000));
        tc.prompter().clear();
        button(VendorRecordsForm::Save)->click();
        QVERIFY(tc.prompter().messages.isEmpty());
        QCOMPARE(form->state(), VendorRecordsForm::State::AddingDetails);
        QVERIFY(QFileInfo::exists(Store::vendorDatabasePath(ctx.dataDir(), QStringLiteral("HLD"))));
        QCOMPARE(VendorRepository::activeVendors(ctx.systemDb())->size(), 1);
        delete form.data();
    }
};

int main(int argc, char** argv) {
    if (const int held = test::runLockHolder(argc, argv); held >= 0)
        return held;
    QApplication app(argc, argv);
    TestFileFaults tests;
    QTEST_SET_MAIN_SOURCE_PATH
    return QTest::qExec(&tests, argc, argv);
}

#include "tst_filefaults.moc"
