#include "app/FileChooser.h"
#include "app/MenuMasks.h"
#include "app/ToolWindow.h"
#include "common/QtPrompter.h"
#include "common/Sql.h"
#include "shell/MainWindow.h"
#include "shell/Program.h"
#include "shell/SplashWindow.h"
#include "store/DatabaseFile.h"
#include "store/Store.h"
#include "support/TestSupport.h"
#include "vendors/VendorRecords.h"

#include <QAction>
#include <QApplication>
#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QLabel>
#include <QLineEdit>
#include <QLockFile>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QRegularExpression>
#include <QSettings>
#include <QTest>

using namespace ordwell;
using test::ScriptedPrompter;
using test::TestFolders;

namespace {

// A tool window with nothing in it but the protocol, to hold the main window open.
class DummyTool : public ToolWindow {
public:
    explicit DummyTool(AppContext& ctx, Level level) : ToolWindow(ctx, level) {
        setObjectName(QStringLiteral("dummyTool"));
        resize(200, 100);
    }
    void exit() { finishToolWindow(); }
};

QStringList enabledEntries(MainWindow& w) {
    QStringList names;
    for (QAction* a : w.maskedEntries()) {
        if (a->isEnabled())
            names << a->objectName();
    }
    return names;
}

// Answers the agreement by pressing one of its buttons, or its close box.
test::ModalAnswerer answerAgreement(const QString& how, QString* shownText = nullptr) {
    return test::ModalAnswerer([how, shownText](QWidget* modal) {
        if (modal->objectName() != QLatin1String("frmfirstrun"))
            return;
        if (shownText)
            *shownText = modal->findChild<QPlainTextEdit*>(QStringLiteral("txtEULA"))->toPlainText();
        if (how == QLatin1String("close"))
            modal->close();
        else
            test::clickButton(modal, how);
    });
}

void createDatabaseWithDetails(const TestFolders& folders) {
    QVERIFY(Store::CreateSystemDatabase(folders.dataDir()));
    QVERIFY(Sql::run(*Store::OpenSystemDatabase(folders.dataDir()),
                     QStringLiteral("INSERT INTO Sysset (location, add1, county, postcode, contact, telephone, "
                                    "email) VALUES ('Acme', '1 Road', 'Kent', 'CT11AA', 'Ann', '0123', 'a@b.c')")));
    DatabaseFile::close(Store::SystemConnection);
}

} // namespace

class TestShell : public test::StrictTest {
    Q_OBJECT
private slots:
    void initTestCase() {
        test::initTestEnvironment();
        QApplication::setQuitOnLastWindowClosed(false);
    }

    void commandLineOptions() {
        const auto parse = [](const QStringList& arguments) {
            return parseOptions(QStringList{"ordwell"} + arguments);
        };
        const Options o =
            parse({"--data-dir", "/d", "--desktop-dir=/desk", "--settings", "/s.ini", "--splash-ms", "0"});
        QVERIFY(o.error.isEmpty());
        QCOMPARE(QStringList({resolveDataDir(o), resolveDesktopDir(o), o.settingsFile}),
                 QStringList({"/d", "/desk", "/s.ini"}));
        QCOMPARE(o.splashMs, 0);
        QCOMPARE(parse({}).splashMs, 1000);
        QVERIFY(!parse({"--splash-ms", "-5"}).error.isEmpty() && !parse({"--bogus"}).error.isEmpty());
        QVERIFY(parse({"--version"}).showVersion);
    }

    void firstRunAgreedCreatesDatabaseAndOpensMaximised() {
        TestFolders folders;
        ScriptedPrompter prompter;
        QString agreement;
        auto answerer = answerAgreement(QStringLiteral("cmdEULAYes"), &agreement);
        Program program(folders.options(), &prompter);
        QVERIFY(program.start());
        QCOMPARE(answerer.answered(), 1);
        QCOMPARE(
            program.startupCaptions(),
            QStringList({QStringLiteral("Checking system database..."), QStringLiteral("Creating database..."),
                         QStringLiteral("Creating database defaults..."), QStringLiteral("Opening the database...")}));
        // The shipped agreement was installed and shown, a line break after each line.
        QVERIFY(QFileInfo::exists(folders.dataFile(QStringLiteral("EULA.txt"))));
        QVERIFY(agreement.startsWith(QStringLiteral("ORDWELL END-USER LICENCE AGREEMENT\n")));
        QVERIFY(QFileInfo::exists(folders.dataFile(QStringLiteral("Ordwell.mdb"))));
        QVERIFY(QFileInfo::exists(folders.dataFile(QStringLiteral("Ordwell.ldb"))));
        QCOMPARE(program.context().DesktopPath, folders.desktopDir());
        MainWindow* main = program.mainWindow();
        QVERIFY(main && main->isVisible());
        QVERIFY(main->isMaximized());
        QCOMPARE(main->windowTitle(), QStringLiteral("Ordwell"));
        QVERIFY(QTest::qWaitForWindowActive(main));
        // The organisation's details are asked for at once, inside the main window, and the
        // menus stay shut (About only) until they are saved.
        QTRY_COMPARE(main->mdiArea()->subWindowList().size(), 1);
        QCOMPARE(main->mdiArea()->subWindowList().first()->widget()->objectName(), QStringLiteral("frmsysdefaults"));
        QCOMPARE(enabledEntries(*main), QStringList{"mnuabout"});
        QVERIFY(prompter.unexpected.isEmpty());
    }

    void declinedOrClosedAgreementCreatesNothing_data() {
        QTest::addColumn<QString>("how");
        QTest::newRow("I Do Not Agree") << QStringLiteral("cmdEULANo");
        QTest::newRow("close box") << QStringLiteral("close");
    }
    void declinedOrClosedAgreementCreatesNothing() {
        QFETCH(QString, how);
        TestFolders folders;
        for (int launch = 0; launch < 2; ++launch) {
            ScriptedPrompter prompter;
            auto answerer = answerAgreement(how);
            Program program(folders.options(), &prompter);
            QVERIFY(!program.start());
            QCOMPARE(answerer.answered(), 1); // offered again on the next launch
            QVERIFY(!program.mainWindow());
            QVERIFY(program.context().DesktopPath.isEmpty());
            QVERIFY(!QFileInfo::exists(folders.dataFile(QStringLiteral("Ordwell.mdb"))));
            QVERIFY(!QFileInfo::exists(folders.dataFile(QStringLiteral("Ordwell.ldb"))));
            QVERIFY(prompter.messages.isEmpty());
            QCOMPARE(program.startupCaptions(), QStringList{QStringLiteral("Checking system database...")});
        }
    }

    void usersOwnAgreementIsShownLineByLine() {
        TestFolders folders;
        const QString eula = folders.dataFile(QStringLiteral("EULA.txt"));
        QVERIFY(test::writeFile(eula, "First line\r\nSecond line\r\nThird line"));
        ScriptedPrompter prompter;
        QString shown;
        auto answerer = answerAgreement(QStringLiteral("cmdEULANo"), &shown);
        Program program(folders.options(), &prompter);
        QVERIFY(!program.start());
        QCOMPARE(shown, QStringLiteral("First line\nSecond line\nThird line\n"));
        QCOMPARE(test::fileContents(eula), QByteArray("First line\r\nSecond line\r\nThird line")); // never replaced
    }

    void unreadableAgreementEndsWithAMessage() {
        TestFolders folders;
        QVERIFY(QDir(folders.dataDir()).mkdir(QStringLiteral("EULA.txt"))); // a folder cannot be read as text
        ScriptedPrompter prompter;
        auto answerer = answerAgreement(QStringLiteral("cmdEULAYes"));
        Program program(folders.options(), &prompter);
        QVERIFY(!program.start());
        QCOMPARE(answerer.answered(), 0);
        QCOMPARE(prompter.messages.size(), 1);
        QVERIFY(prompter.lastText().startsWith(QStringLiteral("The licence agreement")));
        QCOMPARE(prompter.messages.first().icon, MessageIcon::Critical);
        QVERIFY(!QFileInfo::exists(folders.dataFile(QStringLiteral("Ordwell.mdb"))));
        QVERIFY(!QFileInfo::exists(folders.dataFile(QStringLiteral("Ordwell.ldb"))));
    }

    void existingDatabaseOpensAtSavedPlacement() {
        TestFolders folders;
        createDatabaseWithDetails(folders);
        ScriptedPrompter prompter;
        auto answerer = answerAgreement(QStringLiteral("cmdEULANo"));
        {
            Program program(folders.options(), &prompter);
            QVERIFY(program.start());
            QCOMPARE(program.startupCaptions(), QStringList({QStringLiteral("Checking system database..."),
                                                             QStringLiteral("Opening the database...")}));
            MainWindow* main = program.mainWindow();
            QVERIFY(!main->isMaximized());
            const double tpp = main->twipsPerPixel();
            // Nothing saved yet: 1000, 1000, 6500 by 6500 twips.
            QCOMPARE(main->pos(), QPoint(qRound(1000 / tpp), qRound(1000 / tpp)));
            QCOMPARE(main->size(), QSize(qRound(6500 / tpp), qRound(6500 / tpp)));
            QVERIFY(QTest::qWaitForWindowActive(main));
            QTRY_COMPARE(enabledEntries(*main), QStringList({"mnuswven", "mnuabout", "mnuFileExit", "mnuedvend",
                                                             "mnudevend", "mnusysdefault", "mnucompsys"}));
            main->move(120, 90);
            main->resize(700, 500);
            QTest::keyClick(main, Qt::Key_X, Qt::ControlModifier); // File > Exit's shortcut
            QVERIFY(!main->isVisible());
            QVERIFY(!program.context().hasSystemDb());
            QVERIFY(!QFileInfo::exists(folders.dataFile(QStringLiteral("Ordwell.ldb"))));
        }
        QCOMPARE(answerer.answered(), 0);
        QSettings ini(folders.settingsFile(), QSettings::IniFormat);
        QVERIFY(ini.contains(QStringLiteral("Settings/MainLeft")));

        // The next run opens where the last one closed; closing while minimised saves nothing.
        {
            Program program(folders.options(), &prompter);
            QVERIFY(program.start());
            MainWindow* main = program.mainWindow();
            QCOMPARE(main->pos(), QPoint(120, 90));
            QCOMPARE(main->size(), QSize(700, 500));
            main->showMinimized();
            QTRY_VERIFY(main->isMinimized());
            main->triggerMenu(QStringLiteral("mnuFileExit"));
        }
        {
            Program program(folders.options(), &prompter);
            QVERIFY(program.start());
            QCOMPARE(program.mainWindow()->pos(), QPoint(120, 90));
            QCOMPARE(program.mainWindow()->size(), QSize(700, 500));
        }
        QVERIFY(prompter.messages.isEmpty());
    }

    void heldLockEndsTheProgram_data() {
        QTest::addColumn<bool>("withDatabase");
        QTest::addColumn<bool>("byHand");
        QTest::newRow("running copy, new folder") << false << false;
        QTest::newRow("running copy, existing database") << true << false;
        QTest::newRow("lock made by hand") << true << true;
    }
    void heldLockEndsTheProgram() {
        QFETCH(bool, withDatabase);
        QFETCH(bool, byHand);
        TestFolders folders;
        if (withDatabase)
            createDatabaseWithDetails(folders);
        QLockFile other(folders.dataFile(QStringLiteral("Ordwell.ldb")));
        QVERIFY(byHand ? test::writeFile(folders.dataFile(QStringLiteral("Ordwell.ldb")), {}) : other.tryLock(0));
        ScriptedPrompter prompter;
        auto answerer = answerAgreement(QStringLiteral("cmdEULAYes"));
        Program program(folders.options(), &prompter);
        QVERIFY(!program.start());
        QCOMPARE(answerer.answered(), 0);
        QVERIFY(!program.mainWindow());
        QVERIFY(program.context().DesktopPath.isEmpty());
        QCOMPARE(program.startupCaptions(), QStringList{QStringLiteral("Checking system database...")});
        QCOMPARE(prompter.texts(), QStringList{QStringLiteral("Ordwell is already running.")});
        QCOMPARE(QFileInfo::exists(folders.dataFile(QStringLiteral("Ordwell.mdb"))), withDatabase);
        QVERIFY(QFileInfo::exists(folders.dataFile(QStringLiteral("Ordwell.ldb")))); // not ours to remove
    }

    void lockLeftByACrashDoesNotStopTheStart() {
        TestFolders folders;
        createDatabaseWithDetails(folders);
        // The lock file's own format: process id, program name, host name; no such process runs.
        QVERIFY(test::writeFile(folders.dataFile(QStringLiteral("Ordwell.ldb")),
                                "2147480000\nordwell\n" + QSysInfo::machineHostName().toUtf8() + "\n"));
        ScriptedPrompter prompter;
        Program program(folders.options(), &prompter);
        QVERIFY(program.start());
        QVERIFY(prompter.messages.isEmpty());
    }

    void unusableDatabaseIsReported() {
        TestFolders folders;
        QVERIFY(test::writeFile(folders.dataFile(QStringLiteral("Ordwell.mdb")), QByteArray(2048, 'j')));
        ScriptedPrompter prompter;
        Program program(folders.options(), &prompter);
        QTest::ignoreMessage(QtWarningMsg, QRegularExpression(QStringLiteral("^SQLite result 26 ")));
        QVERIFY(!program.start());
        QVERIFY(!program.mainWindow());
        QCOMPARE(prompter.texts(),
                 QStringList{
                     QStringLiteral("There is a problem with the system database, please check the system database")});
        QCOMPARE(prompter.messages.first().icon, MessageIcon::Critical);
        QCOMPARE(prompter.messages.first().title, QString());
        QVERIFY(!QFileInfo::exists(folders.dataFile(QStringLiteral("Ordwell.ldb"))));
    }

    // The vendor masks (the no-vendor and system-window ones are seen at start-up and under a
    // tool window); a mask of the wrong length is reported, and its first 18 places still applied.
    void menuMasks() {
        test::TestContext tc;
        MainWindow main(tc.context());
        main.ApplyMenuMask(MenuMasks::VendorOpen);
        QCOMPARE(enabledEntries(main), (QStringList{"mnuswven", "mnuabout", "mnuFileExit", "mnuNewOrd", "mnuLdOrd",
                                                    "mnuprtord", "mnuexpord", "mnuRcvOrd", "mnueditms", "mnuimpitms",
                                                    "mnubarcodes", "mnurptoutitms", "mnurptOrdhist", "mnucompvend"}));
        main.ApplyMenuMask(MenuMasks::VendorWindow);
        QCOMPARE(enabledEntries(main), (QStringList{"mnuabout", "mnurptoutitms", "mnurptOrdhist"}));
        QVERIFY(tc.prompter().messages.isEmpty());

        main.ApplyMenuMask(QStringLiteral("0101010101010101x1"));             // 18: the last two leave entries alone
        main.ApplyMenuMask(QString(18, QLatin1Char('1')) + QLatin1Char('0')); // 19 characters
        QCOMPARE(tc.prompter().texts(), QStringList(2, QStringLiteral("The menu option is the wrong length")));
        QCOMPARE(tc.prompter().messages.first().icon, MessageIcon::None);
        QCOMPARE(tc.prompter().messages.first().title, QString());
        QCOMPARE(enabledEntries(main).size(), main.maskedEntries().size()); // positions 1 to 18 applied
    }

    void closeIsRefusedWhileAToolWindowIsOpen() {
        test::TestContext tc;
        MainWindow main(tc.context());
        main.show();
        auto* tool = new DummyTool(tc.context(), ToolWindow::Level::System);
        main.showToolWindow(tool);
        QCOMPARE(tc.context().OpenWindowCount, 1);
        QCOMPARE(enabledEntries(main), QStringList{"mnuabout"});
        QVERIFY(!main.close());
        QVERIFY(main.isVisible());
        QVERIFY(tc.context().hasSystemDb());
        QCOMPARE(tc.prompter().texts(),
                 QStringList{QStringLiteral("Please close any active windows before closing the software!")});
        QCOMPARE(tc.prompter().messages.first().icon, MessageIcon::Exclamation);

        // The tool window's close box does not bypass its own exit (it has none here).
        QMdiSubWindow* frame = main.mdiArea()->subWindowList().first();
        frame->close();
        QCOMPARE(tc.context().OpenWindowCount, 1);

        tool->exit();
        QCOMPARE(tc.context().OpenWindowCount, 0);
        QTRY_VERIFY(main.mdiArea()->subWindowList().isEmpty());
        QCOMPARE(enabledEntries(main).size(), 7); // the no-vendor mask again
        main.close();
        QVERIFY(!main.isVisible());
        QVERIFY(!tc.context().hasSystemDb());
    }

    // A tool window counts itself once, whichever way it goes: through its exit, or torn down
    // with the program while still open; one never placed never counted.
    void toolWindowCountAfterDestruction_data() {
        QTest::addColumn<bool>("begun");
        QTest::addColumn<bool>("exited");
        QTest::addColumn<int>("whileAlive");
        QTest::newRow("destroyed while open") << true << false << 2;
        QTest::newRow("exited, then destroyed") << true << true << 1;
        QTest::newRow("never placed") << false << false << 1;
    }

    void toolWindowCountAfterDestruction() {
        QFETCH(bool, begun);
        QFETCH(bool, exited);
        QFETCH(int, whileAlive);
        test::TestContext tc;
        AppContext& ctx = tc.context();
        DummyTool other(ctx, ToolWindow::Level::System);
        other.beginToolWindow();
        {
            DummyTool tool(ctx, ToolWindow::Level::Vendor);
            if (begun) {
                tool.beginToolWindow();
                tool.beginToolWindow(); // placing twice counts once
            }
            if (exited)
                tool.exit();
            QCOMPARE(ctx.OpenWindowCount, whileAlive);
        }
        QCOMPARE(ctx.OpenWindowCount, 1);
    }

    // Price lists may be saved as text too.
    void realFileDialogStartsOnTheDesktopAndNeedsAnExistingFile() {
        TestFolders folders;
        const QString prices = QDir(folders.desktopDir()).filePath(QStringLiteral("prices.txt"));
        QVERIFY(test::writeFile(prices, {}));
        QtPrompter real;
        AppContext ctx(folders.dataDir(), folders.settingsFile(), real);
        ctx.DesktopPath = folders.desktopDir();
        QString title, directory;
        QStringList filters;
        int fileMode = -1;
        test::ModalAnswerer answerer([&](QWidget* modal) {
            auto* dialog = qobject_cast<QFileDialog*>(modal);
            if (!dialog || dialog->objectName() != QLatin1String("dlgOpenFile"))
                return;
            title = dialog->windowTitle();
            directory = dialog->directory().absolutePath();
            filters = dialog->nameFilters();
            fileMode = dialog->fileMode();
            dialog->findChild<QLineEdit*>(QStringLiteral("fileNameEdit"))->setText(QStringLiteral("prices.txt"));
            QMetaObject::invokeMethod(dialog, "accept");
        });
        const auto chosen = FileChooser::choose(ctx, FileChooser::ImportFiles);
        QCOMPARE(title, QStringLiteral("Open File"));
        QCOMPARE(directory, folders.desktopDir());
        QCOMPARE(filters, (QStringList{"Comma Seperated Variable (*.csv)", "Text File(*.txt)"}));
        QCOMPARE(fileMode, int(QFileDialog::ExistingFile));
        QCOMPARE(chosen, std::optional(prices));
        QCOMPARE(ctx.OpenWindowCount, 0);
    }

    void aboutShowsButtonsAndNoProgressLine() {
        test::TestContext tc;
        MainWindow main(tc.context());
        main.show();
        main.triggerMenu(QStringLiteral("mnuabout"));
        SplashWindow* about = nullptr;
        for (QWidget* w : QApplication::topLevelWidgets()) {
            if (w->objectName() == QLatin1String("frmsplash") && w->isVisible())
                about = qobject_cast<SplashWindow*>(w);
        }
        QVERIFY(about);
        QVERIFY(about->windowFlags() & Qt::WindowStaysOnTopHint);
        QVERIFY(about->findChild<QPushButton*>(QStringLiteral("Command1"))->isVisible());
        QVERIFY(about->findChild<QPushButton*>(QStringLiteral("cmdie"))->isVisible());
        QVERIFY(!about->findChild<QLabel*>(QStringLiteral("Label3"))->isVisible());
        QCOMPARE(tc.context().OpenWindowCount, 0); // About is not a tool window
        main.triggerMenu(QStringLiteral("mnuabout"));
        int shown = 0;
        for (QWidget* w : QApplication::topLevelWidgets())
            shown += w->objectName() == QLatin1String("frmsplash") && w->isVisible();
        QCOMPARE(shown, 1);
        test::clickButton(about, QStringLiteral("Command1"));
        QVERIFY(!about->isVisible());
    }

    // What a screen reader hears from the labels that show values: their text, never a fixed name.
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

QTEST_MAIN(TestShell)
#include "tst_shell.moc"
