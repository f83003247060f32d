// Killing the program during line entry loses no confirmed line: a second process runs the
// whole program, enters lines and is killed outright; the program started again recovers
// the live order with every line it had confirmed.
#include "common/Sql.h"
#include "orders/OrderForm.h"
#include "orders/OrderWords.h"
#include "shell/Program.h"
#include "store/Store.h"
#include "support/TestSupport.h"
#include "vendors/VendorChooser.h"
#include "vendors/VendorSession.h"

#include <QApplication>
#include <QLabel>
#include <QLineEdit>
#include <QProcess>
#include <QPushButton>
#include <QTableWidget>
#include <QTest>
#include <csignal>
#include <cstdio>

using namespace ordwell;

namespace {

const QString ChildSwitch = QStringLiteral("--entry-child");
const QStringList Codes = {QStringLiteral("A1"), QStringLiteral("B2"), QStringLiteral("C3")};

// Nobody is there to read the child's messages; a question is answered No.
class QuietPrompter : public Prompter {
public:
    MessageAnswer message(const QString&, const QString&, MessageIcon, MessageButtons buttons) override {
        return buttons == MessageButtons::YesNo ? MessageAnswer::No : MessageAnswer::Ok;
    }
    std::optional<QString> openFile(const FileRequest&) override { return std::nullopt; }
};

OrderForm* waitForOrderForm(MainWindow* window) {
    OrderForm* form = nullptr;
    (void)QTest::qWaitFor(
        [&] {
            form = window->findChild<OrderForm*>(QStringLiteral("frmorder"));
            return form && form->ActivatedOnce;
        },
        10000);
    return form;
}

// The child: the whole program on the given folders, a new order, its lines entered by
// scanner keys; each confirmed line is reported on standard output. Then it waits to be killed.
int runChild(int argc, char** argv) {
    QApplication app(argc, argv);
    test::initTestEnvironment();
    Options options;
    options.dataDir = QString::fromLocal8Bit(argv[2]);
    options.desktopDir = QString::fromLocal8Bit(argv[3]);
    options.settingsFile = QString::fromLocal8Bit(argv[4]);
    options.splashMs = 0;
    QuietPrompter prompter;
    Program program(options, &prompter);
    if (!program.start())
        return 3;
    AppContext& context = program.context();
    const auto opened = VendorChooser::openVendor(context, QStringLiteral("ABC"), QStringLiteral("Acme Supplies"));
    if (!opened || *opened)
        return 4;
    context.openOrderForm(OrderMode::New);
    OrderForm* form = waitForOrderForm(program.mainWindow());
    if (!form)
        return 5;
    QTest::mouseClick(form->ui().cmdstartorder, Qt::LeftButton);
    for (const QString& code : Codes) {
        QTest::keyClicks(QApplication::focusWidget(), code);
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
        if (auto* quantity = qobject_cast<QLineEdit*>(QApplication::focusWidget()))
            quantity->selectAll();
        QTest::keyClicks(QApplication::focusWidget(), QStringLiteral("4"));
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
        std::printf("confirmed %s\n", qPrintable(code));
        std::fflush(stdout);
    }
    // A fourth code half typed when the end comes.
    QTest::keyClicks(QApplication::focusWidget(), QStringLiteral("A"));
    std::printf("typing\n");
    std::fflush(stdout);
    return app.exec();
}

} // namespace

class TestCrashSafety : public QObject {
    Q_OBJECT
private slots:
    void initTestCase() { test::initTestEnvironment(); }

    void killedDuringEntryRecoversEveryConfirmedLine() {
        test::TestFolders folders;
        // The system database, the organisation and vendor ABC with three items.
        {
            test::ScriptedPrompter prompter;
            AppContext context(folders.dataDir(), folders.settingsFile(), prompter);
            QVERIFY(Store::CreateSystemDatabase(folders.dataDir()));
            QVERIFY(Store::OpenSystemDatabase(folders.dataDir()));
            test::storeOrganisationDetails(context);
            QVERIFY(Store::CreateVendorDatabase(folders.dataDir(), QStringLiteral("ABC")));
            QVERIFY(Store::OpenVendorDatabase(folders.dataDir(), Store::vendorFileName(QStringLiteral("ABC"))));
            const QSqlDatabase db = context.vendorDb();
            QVERIFY(Sql::run(
                db, QStringLiteral(
                        "INSERT INTO vendor (vendorid, customerid, add1, county, postcode, repname, nextord, ordform) "
                        "VALUES ('ABC', 'C1', '1 Road', 'Kent', 'CT1 1AA', 'Rep', 1000000, 'ordform.rpt')")));
            for (const QString& code : Codes)
                QVERIFY(Sql::run(db,
                                 QStringLiteral("INSERT INTO items (code, descr, packqty, defqty, price, priceexp) "
                                                "VALUES (?, ?, 1, 1, 15000, '2099-01-01')"),
                                 {code, QStringLiteral("Item ") + code}));
            context.closeVendorDb();
            context.closeSystemDb();
        }

        QProcess child;
        child.setProcessChannelMode(QProcess::ForwardedErrorChannel);
        child.start(QCoreApplication::applicationFilePath(),
                    {ChildSwitch, folders.dataDir(), folders.desktopDir(), folders.settingsFile()});
        QVERIFY(child.waitForStarted(10000));
        QByteArray said;
        QVERIFY2(QTest::qWaitFor(
                     [&] {
                         said += child.readAllStandardOutput();
                         return said.contains("typing") || child.state() == QProcess::NotRunning;
                     },
                     60000),
                 said.constData());
        QVERIFY2(said.contains("typing"), said.constData());
        ::kill(static_cast<pid_t>(child.processId()), SIGKILL);
        QVERIFY(child.waitForFinished(10000));
        QCOMPARE(child.exitStatus(), QProcess::CrashExit);

        // Started again: opening the vendor finds the live order and the form recovers it.
        test::ScriptedPrompter prompter;
        Program program(folders.options(), &prompter);
        QVERIFY(program.start());
        AppContext& context = program.context();
        const auto opened = VendorChooser::openVendor(context, QStringLiteral("ABC"), QStringLiteral("Acme Supplies"));
        QVERIFY(opened && *opened);
        context.openOrderForm(OrderMode::Live);
        OrderForm* form = waitForOrderForm(program.mainWindow());
        QVERIFY(form);
        const OrderFormControls& ui = form->ui();
        QCOMPARE(ui.txtheader[Header::OrderNumber]->text(), QStringLiteral("ABC1000000"));
        QCOMPARE(ui.txtheader[Header::Status]->text(), QStringLiteral("L - Live"));
        QCOMPARE(ui.txtheader[Header::Total]->text(), QStringLiteral("18.00"));
        for (int i = 0; i < Codes.size(); ++i) {
            QCOMPARE(ui.flxitems->item(i + 1, 1)->text(), Codes[i]);
            QCOMPARE(ui.flxitems->item(i + 1, 3)->text(), QStringLiteral("4"));
        }
        QVERIFY(ui.flxitems->item(4, 1)->text().isEmpty());
        QCOMPARE(form->ui().lblinfo->text(), QStringLiteral("Order recovered"));
        QTest::mouseClick(ui.cmdbutton[MainButton::Exit], Qt::LeftButton);
        context.vendorSession().close();
    }
};

int main(int argc, char** argv) {
    if (argc >= 5 && QString::fromLocal8Bit(argv[1]) == ChildSwitch)
        return runChild(argc, argv);
    QApplication app(argc, argv);
    TestCrashSafety test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_crashsafety.moc"
