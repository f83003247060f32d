// Killing the program during line entry loses no confirmed line: a second process runs the
// whole program, starts an order by its keys, enters lines and is killed outright with more
// half typed; the program started again recovers the live order with every line it had
// confirmed and nothing else, lets entry go on, and Exit ends the entry of all of it.
#include "OrderDataFixture.h"
#include "app/VendorSession.h"
#include "common/Sql.h"
#include "orders/OrderForm.h"
#include "orders/OrderWords.h"
#include "shell/Program.h"
#include "vendors/VendorChooser.h"

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
const QString OrderNumber = QStringLiteral("ABC1000000");
// Code and quantity of each line confirmed before the kill; "D4" is entered after recovery.
const QList<std::pair<QString, QString>> Confirmed = {{QStringLiteral("A1"), QStringLiteral("4")},
                                                      {QStringLiteral("B2"), QStringLiteral("12")},
                                                      {QStringLiteral("C3"), QStringLiteral("1")}};

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

void key(int k, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
    QTest::keyClick(QApplication::focusWidget(), Qt::Key(k), modifiers);
}
void type(const QString& text) {
    QTest::keyClicks(QApplication::focusWidget(), text);
}

// A code, Enter, the quantity typed over the offered one, Enter: the keys a user gives a line.
void enterLine(const QString& code, const QString& qty) {
    type(code);
    key(Qt::Key_Return);
    key(Qt::Key_A, Qt::ControlModifier);
    type(qty);
    key(Qt::Key_Return);
}

// The child: the whole program on the given folders; Ctrl+N starts an order, a contact name
// and Enter through the header reach "Start Order", lines are keyed in, each reported on
// standard output once confirmed. Then something unconfirmed is typed and it waits to be killed.
int runChild(int argc, char** argv) {
    QApplication app(argc, argv);
    test::initTestEnvironment();
    Options options;
    options.dataDir = QString::fromLocal8Bit(argv[2]);
    options.desktopDir = QString::fromLocal8Bit(argv[3]);
    options.settingsFile = QString::fromLocal8Bit(argv[4]);
    options.splashMs = 0;
    test::ScriptedPrompter prompter; // nobody reads the child's messages; a question is answered No
    Program program(options, &prompter);
    if (!program.start())
        return 3;
    const auto opened =
        VendorChooser::openVendor(program.context(), QStringLiteral("ABC"), QStringLiteral("Acme Supplies"));
    if (!opened || *opened)
        return 4;
    MainWindow* window = program.mainWindow();
    window->activateWindow();
    if (!QTest::qWaitForWindowActive(window))
        return 5;
    QTest::keyClick(window, Qt::Key_N, Qt::ControlModifier);
    if (!waitForOrderForm(window))
        return 6;
    type(QStringLiteral("Ann"));
    for (int i = 0; i < 4; ++i)
        key(Qt::Key_Return);
    key(Qt::Key_Space);
    for (const auto& [code, qty] : Confirmed) {
        enterLine(code, qty);
        std::printf("confirmed %s\n", qPrintable(code));
        std::fflush(stdout);
    }
    if (QString::fromLocal8Bit(argv[5]) == QLatin1String("quantity")) {
        // A known code's quantity being typed over.
        type(QStringLiteral("A1"));
        key(Qt::Key_Return);
        key(Qt::Key_A, Qt::ControlModifier);
        type(QStringLiteral("7"));
    } else {
        type(QStringLiteral("D"));
    }
    std::printf("typing\n");
    std::fflush(stdout);
    return app.exec();
}

} // namespace

class TestCrashSafety : public QObject {
    Q_OBJECT

    // Stored values of the order, read back.
    static QString orderValue(AppContext& context, const QString& sql) {
        return Sql::scalar(context.vendorDb(), sql, {OrderNumber})->toString();
    }

private slots:
    void initTestCase() { test::initTestEnvironment(); }

    void killedDuringEntryRecoversEveryConfirmedLine_data() {
        QTest::addColumn<QString>("unconfirmed");
        QTest::newRow("a code half typed") << "code";
        QTest::newRow("a known code's quantity being typed") << "quantity";
    }
    void killedDuringEntryRecoversEveryConfirmedLine() {
        QFETCH(QString, unconfirmed);
        // The organisation and vendor ABC with four items at 1.50, closed for the child to open.
        test::OrderDataFixture f;
        for (const char* code : {"A1", "B2", "C3", "D4"})
            f.addItem(QLatin1String(code), QStringLiteral("Item ") + QLatin1String(code), Money::fromPence(150));
        f.ctx().closeVendorDb();
        f.ctx().closeSystemDb();
        const test::TestFolders& folders = f.folders();

        QProcess child;
        child.setProcessChannelMode(QProcess::ForwardedErrorChannel);
        child.start(QCoreApplication::applicationFilePath(),
                    {ChildSwitch, folders.dataDir(), folders.desktopDir(), folders.settingsFile(), unconfirmed});
        QVERIFY(child.waitForStarted(10000));
        QByteArray said;
        QVERIFY2(QTest::qWaitFor(
                     [&] {
                         said += child.readAllStandardOutput();
                         return said.contains("typing") || child.state() == QProcess::NotRunning;
                     },
                     60000),
                 said.constData());
        QVERIFY2(said.contains("typing"),
                 qPrintable(QStringLiteral("%1 (exit %2)").arg(QString::fromLatin1(said)).arg(child.exitCode())));
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
        program.mainWindow()->activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(program.mainWindow()));
        context.openOrderForm(OrderMode::Live);
        OrderForm* form = waitForOrderForm(program.mainWindow());
        QVERIFY(form);
        const OrderFormControls& ui = form->ui();
        QStringList header;
        for (const int box : {Header::OrderNumber, Header::ContactName, Header::Status, Header::Total})
            header << ui.txtheader[box]->text();
        QCOMPARE(header, (QStringList{OrderNumber, "Ann", "L - Live", "25.50"}));
        for (int i = 0; i < Confirmed.size(); ++i) {
            QCOMPARE(ui.flxitems->item(i + 1, 1)->text(), Confirmed[i].first);
            QCOMPARE(ui.flxitems->item(i + 1, 3)->text(), Confirmed[i].second);
        }
        QVERIFY(ui.flxitems->item(4, 1)->text().isEmpty());
        QCOMPARE(ui.lblinfo->text(), QStringLiteral("Order recovered"));
        QCOMPARE(orderValue(context, QStringLiteral("SELECT count(*) FROM orderhead WHERE orderid <> ?")),
                 QStringLiteral("0"));

        // Entry goes on from the code box; Exit ends it, the order and all its lines "E".
        QCOMPARE(QApplication::focusWidget(), ui.txtitem[Entry::Code]);
        enterLine(QStringLiteral("D4"), QStringLiteral("2"));
        QCOMPARE(orderValue(context, QStringLiteral("SELECT totalval FROM orderhead WHERE orderid = ?")),
                 QString::number(19 * 15000));
        key(Qt::Key_X, Qt::AltModifier);
        QTRY_COMPARE(orderValue(context, QStringLiteral("SELECT status FROM orderhead WHERE orderid = ?")),
                     QStringLiteral("E"));
        QCOMPARE(orderValue(context, QStringLiteral(
                                         "SELECT group_concat(code || ':' || qty || status, ' ') FROM "
                                         "(SELECT code, qty, status FROM orderline WHERE orderid = ? ORDER BY line)")),
                 QStringLiteral("A1:4E B2:12E C3:1E D4:2E"));
        context.vendorSession().close();
    }
};

int main(int argc, char** argv) {
    if (argc >= 6 && QString::fromLocal8Bit(argv[1]) == ChildSwitch)
        return runChild(argc, argv);
    QApplication app(argc, argv);
    TestCrashSafety test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_crashsafety.moc"
