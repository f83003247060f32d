// The installed program itself, driven by keystrokes on its own X server, is killed outright
// while an order's lines are being typed. Started again on the same data folder, it must find
// the live order, recover it with every line that had reached the database, and let entry go
// on where it stopped.
#include "common/Sql.h"
#include "store/Store.h"
#include "support/TestSupport.h"

#include <QDeadlineTimer>
#include <QProcess>
#include <QSqlDatabase>
#include <QSqlQuery>
#include <QStandardPaths>
#include <QTemporaryDir>
#include <QTest>
#include <QThread>
#include <csignal>
#include <functional>
#include <memory>

using namespace ordwell;

namespace {

const QString Vendor = QStringLiteral("ABC");
const QString OrderNumber = QStringLiteral("ABC1000000");

struct Line {
    QString code;
    QString qty;
};
// Entered before the kill, one line at a time.
const QList<Line> FirstRun = {{QStringLiteral("A1"), QStringLiteral("4")},
                              {QStringLiteral("B2"), QStringLiteral("12")},
                              {QStringLiteral("C3"), QStringLiteral("1")}};
// Entered into the recovered order.
const Line SecondRun = {QStringLiteral("D4"), QStringLiteral("2")};

// The main window's width as the settings place it (15,000 twips at 96 dpi); the splash is narrower.
constexpr int MainWidth = 1000;

// Every item costs 1.50.
constexpr qint64 PriceTenThousandths = 15000;

// Polls `done` until it holds or `ms` pass, sleeping between polls (nothing in this process needs
// an event loop).
bool waitUntil(const std::function<bool()>& done, int ms) {
    QDeadlineTimer deadline(ms);
    while (!done()) {
        if (deadline.hasExpired())
            return false;
        QThread::msleep(100);
    }
    return true;
}

// An X server of our own: a display number nobody else uses, gone with the object.
class XServer {
public:
    bool start(QString& why) {
        // -displayfd: the server picks a free display and writes its number on our standard output.
        // -noreset: the server would otherwise reset when its last client goes, as the killed
        // program does, and refuse the restarted one while it resets.
        m_process.start(QStringLiteral("Xvfb"),
                        {QStringLiteral("-displayfd"), QStringLiteral("1"), QStringLiteral("-noreset"),
                         QStringLiteral("-screen"), QStringLiteral("0"), QStringLiteral("1280x800x24"),
                         QStringLiteral("-nolisten"), QStringLiteral("tcp")});
        if (!m_process.waitForStarted(10000)) {
            why = QStringLiteral("Xvfb did not start: ") + m_process.errorString();
            return false;
        }
        QByteArray said;
        const bool numbered = waitUntil(
            [&] {
                m_process.waitForReadyRead(100);
                said += m_process.readAllStandardOutput();
                return said.contains('\n') || m_process.state() == QProcess::NotRunning;
            },
            20000);
        bool ok = false;
        const int number = said.trimmed().toInt(&ok);
        if (!numbered || !ok) {
            why = QStringLiteral("Xvfb gave no display number: ") + QString::fromLocal8Bit(said);
            return false;
        }
        m_display = QStringLiteral(":%1").arg(number);
        return true;
    }

    ~XServer() {
        if (m_process.state() != QProcess::NotRunning) {
            m_process.terminate();
            if (!m_process.waitForFinished(5000))
                m_process.kill();
            m_process.waitForFinished(5000);
        }
    }

    QString display() const { return m_display; }

private:
    QProcess m_process;
    QString m_display;
};

// Keystrokes and window look-ups through xdotool on that display.
class Keyboard {
public:
    explicit Keyboard(QString display) : m_display(std::move(display)) {}

    QString run(const QStringList& arguments) const {
        QProcess xdo;
        QProcessEnvironment env = QProcessEnvironment::systemEnvironment();
        env.insert(QStringLiteral("DISPLAY"), m_display);
        xdo.setProcessEnvironment(env);
        xdo.start(QStringLiteral("xdotool"), arguments);
        if (!xdo.waitForFinished(15000)) {
            xdo.kill();
            xdo.waitForFinished(2000);
            return QString();
        }
        return QString::fromLocal8Bit(xdo.readAllStandardOutput()).trimmed();
    }

    // The visible windows whose title is exactly `title`.
    QStringList windows(const QString& title) const {
        const QString out = run({QStringLiteral("search"), QStringLiteral("--onlyvisible"), QStringLiteral("--name"),
                                 QLatin1Char('^') + title + QLatin1Char('$')});
        return out.split(QLatin1Char('\n'), Qt::SkipEmptyParts);
    }

    // Waits for a visible window with this title at least `minWidth` pixels wide (the splash
    // shares the main window's title while it is up, and is smaller).
    QString waitForWindow(const QString& title, int minWidth, int ms = 60000) const {
        QString found;
        waitUntil(
            [&] {
                for (const QString& id : windows(title)) {
                    if (width(id) >= minWidth)
                        found = id;
                }
                return !found.isEmpty();
            },
            ms);
        return found;
    }

    int width(const QString& window) const {
        const QString geometry = run({QStringLiteral("getwindowgeometry"), QStringLiteral("--shell"), window});
        for (const QString& line : geometry.split(QLatin1Char('\n'))) {
            if (line.startsWith(QLatin1String("WIDTH=")))
                return line.mid(6).toInt();
        }
        return -1;
    }

    // Every visible window's title and width, for a failure message.
    QString describeScreen() const {
        QStringList seen;
        const QString ids = run({QStringLiteral("search"), QStringLiteral("--onlyvisible"), QStringLiteral("--name"),
                                 QStringLiteral(".*")});
        for (const QString& id : ids.split(QLatin1Char('\n'), Qt::SkipEmptyParts))
            seen << QStringLiteral("\"%1\" %2px").arg(run({QStringLiteral("getwindowname"), id})).arg(width(id));
        return QStringLiteral("windows on the screen: ") + seen.join(QStringLiteral(", "));
    }

    // With no window manager the X focus is only where it is put.
    void focus(const QString& window) const { run({QStringLiteral("windowfocus"), QStringLiteral("--sync"), window}); }

    void keys(const QStringList& names) const {
        run(QStringList{QStringLiteral("key"), QStringLiteral("--delay"), QStringLiteral("80")} + names);
    }

    void type(const QString& text) const {
        run({QStringLiteral("type"), QStringLiteral("--delay"), QStringLiteral("80"), text});
    }

private:
    QString m_display;
};

// The vendor database, looked at from outside while the program writes it.
class VendorFileWatch {
public:
    explicit VendorFileWatch(const QString& path) : m_name(QStringLiteral("watch")) {
        QSqlDatabase db = QSqlDatabase::addDatabase(QStringLiteral("QSQLITE"), m_name);
        db.setDatabaseName(path);
        db.setConnectOptions(QStringLiteral("QSQLITE_OPEN_READONLY;QSQLITE_BUSY_TIMEOUT=5000"));
    }
    ~VendorFileWatch() {
        {
            QSqlDatabase db = QSqlDatabase::database(m_name, false);
            db.close();
        }
        QSqlDatabase::removeDatabase(m_name);
    }

    // One value of a one-row query, as text; empty when the row is missing or unreadable.
    QString value(const QString& sql, const QVariantList& values = {}) const {
        QSqlDatabase db = QSqlDatabase::database(m_name);
        if (!db.isOpen())
            return QString();
        QSqlQuery query(db);
        query.prepare(sql);
        for (const QVariant& v : values)
            query.addBindValue(v);
        if (!query.exec() || !query.next())
            return QString();
        return query.value(0).toString();
    }

    int lineCount() const {
        return value(QStringLiteral("SELECT COUNT(*) FROM orderline WHERE orderid = ?"), {OrderNumber}).toInt();
    }
    QString lineQty(const QString& code) const {
        return value(QStringLiteral("SELECT qty FROM orderline WHERE orderid = ? AND code = ?"), {OrderNumber, code});
    }
    QString orderField(const QString& field) const {
        return value(QStringLiteral("SELECT %1 FROM orderhead WHERE orderid = ?").arg(field), {OrderNumber});
    }
    int orderCount() const { return value(QStringLiteral("SELECT COUNT(*) FROM orderhead")).toInt(); }

private:
    QString m_name;
};

// The program under test; a failing check never leaves it running.
class OrdwellProcess : public QProcess {
public:
    ~OrdwellProcess() override {
        if (state() != QProcess::NotRunning) {
            kill();
            waitForFinished(10000);
        }
    }
};

} // namespace

class TestKilledProcess : public test::StrictTest {
    Q_OBJECT

    std::unique_ptr<XServer> m_x;
    std::unique_ptr<test::TestFolders> m_folders;
    QTemporaryDir m_runtimeDir; // owner-only, as Qt wants it

    // Ordwell on our X server and folders, as a user would start it.
    void startOrdwell(OrdwellProcess& ordwell) {
        QProcessEnvironment env = QProcessEnvironment::systemEnvironment();
        env.insert(QStringLiteral("DISPLAY"), m_x->display());
        env.insert(QStringLiteral("QT_QPA_PLATFORM"), QStringLiteral("xcb"));
        env.remove(QStringLiteral("WAYLAND_DISPLAY"));
        env.insert(QStringLiteral("XDG_RUNTIME_DIR"), m_runtimeDir.path());
        ordwell.setProcessEnvironment(env);
        ordwell.setProcessChannelMode(QProcess::ForwardedChannels);
        ordwell.start(QStringLiteral(ORDWELL_BINARY),
                      {QStringLiteral("--data-dir"), m_folders->dataDir(), QStringLiteral("--desktop-dir"),
                       m_folders->desktopDir(), QStringLiteral("--settings"), m_folders->settingsFile(),
                       QStringLiteral("--splash-ms"), QStringLiteral("0")});
    }

    // The system database with the organisation's details and vendor ABC, whose database holds
    // the four items; a first run past, so no agreement and no defaults window come up.
    void prepareDataFolder() {
        test::ScriptedPrompter prompter;
        AppContext context(m_folders->dataDir(), m_folders->settingsFile(), prompter);
        QVERIFY(Store::CreateSystemDatabase(m_folders->dataDir()));
        QVERIFY(Store::OpenSystemDatabase(m_folders->dataDir()));
        test::storeOrganisationDetails(context);
        QVERIFY(Sql::run(context.systemDb(),
                         QStringLiteral("INSERT INTO vendors (vendor, code, status) VALUES (?, ?, 'A')"),
                         {QStringLiteral("Acme Supplies"), Vendor}));
        QVERIFY(Store::CreateVendorDatabase(m_folders->dataDir(), Vendor));
        QVERIFY(Store::OpenVendorDatabase(m_folders->dataDir(), Store::vendorFileName(Vendor)));
        {
            const QSqlDatabase db = context.vendorDb();
            QVERIFY(
                Sql::run(db,
                         QStringLiteral("INSERT INTO vendor (vendorid, customerid, add1, county, postcode, repname, "
                                        "nextord, ordform) VALUES (?, 'C1', '1 Road', 'Kent', 'CT1 1AA', 'Rep', "
                                        "1000000, 'ordform.rpt')"),
                         {Vendor}));
            QList<Line> all = FirstRun;
            all << SecondRun;
            for (const Line& line : all)
                QVERIFY(Sql::run(db,
                                 QStringLiteral("INSERT INTO items (code, descr, packqty, defqty, price, priceexp) "
                                                "VALUES (?, ?, 1, 1, ?, '2099-01-01')"),
                                 {line.code, QStringLiteral("Item ") + line.code, PriceTenThousandths}));
        }
        context.closeVendorDb();
        context.closeSystemDb();
        // The main window where it was last left: large, so it is told from the splash by size.
        QVERIFY(test::writeFile(m_folders->settingsFile(), QByteArrayLiteral("[Settings]\nMainLeft=0\nMainTop=0\n"
                                                                             "MainWidth=15000\nMainHeight=11000\n")));
    }

    // File > Switch Vendor, the one vendor, Select Vendor.
    void openVendor(const Keyboard& kb, const QString& mainWindow) {
        kb.focus(mainWindow);
        kb.keys({QStringLiteral("ctrl+s")});
        // The chooser has no window of its own to wait for; give it a moment to take the focus.
        QThread::msleep(2000);
        kb.keys({QStringLiteral("Down"), QStringLiteral("alt+s")});
    }

    // One line: the code, Enter, the quantity over the default one, Enter.
    void enterLine(const Keyboard& kb, const Line& line) {
        kb.type(line.code);
        kb.keys({QStringLiteral("Return"), QStringLiteral("ctrl+a")});
        kb.type(line.qty);
        kb.keys({QStringLiteral("Return")});
    }

    static QString total(int units) { return QString::number(units * PriceTenThousandths); }

private slots:
    void initTestCase() {
        test::initTestEnvironment();
        if (QStandardPaths::findExecutable(QStringLiteral("Xvfb")).isEmpty() ||
            QStandardPaths::findExecutable(QStringLiteral("xdotool")).isEmpty())
            QSKIP("needs Xvfb and xdotool (scripts/setup installs them)");
        m_x = std::make_unique<XServer>();
        QString why;
        QVERIFY2(m_x->start(why), qPrintable(why));
    }

    void cleanupTestCase() { m_x.reset(); }

    // What is on the screen when the end comes: never stored, so never recovered.
    void killedDuringLineEntryRecoversEveryConfirmedLine_data() {
        QTest::addColumn<QStringList>("unconfirmed");
        QTest::newRow("a code half typed") << QStringList{QStringLiteral("type"), QStringLiteral("D")};
        QTest::newRow("a known code's quantity being typed") << QStringList{
            QStringLiteral("type"), QStringLiteral("A1"),     QStringLiteral("key"),  QStringLiteral("Return"),
            QStringLiteral("key"),  QStringLiteral("ctrl+a"), QStringLiteral("type"), QStringLiteral("7")};
    }
    void killedDuringLineEntryRecoversEveryConfirmedLine() {
        QFETCH(QStringList, unconfirmed);
        m_folders = std::make_unique<test::TestFolders>();
        prepareDataFolder();
        const Keyboard kb(m_x->display());
        const QString vendorFile = m_folders->dataFile(Store::vendorFileName(Vendor));

        // First run: a new order, its header, three lines, and a fourth code half typed.
        {
            OrdwellProcess ordwell;
            startOrdwell(ordwell);
            QVERIFY2(ordwell.waitForStarted(10000), qPrintable(ordwell.errorString()));
            const QString mainWindow = kb.waitForWindow(QStringLiteral("Ordwell"), MainWidth);
            QVERIFY2(!mainWindow.isEmpty(), qPrintable(QStringLiteral("the main window never showed; running: %1; %2")
                                                           .arg(ordwell.state() == QProcess::Running)
                                                           .arg(kb.describeScreen())));
            openVendor(kb, mainWindow);

            VendorFileWatch watch(vendorFile);
            kb.keys({QStringLiteral("ctrl+n")});
            QVERIFY2(waitUntil([&] { return watch.orderField(QStringLiteral("status")) == QLatin1String("L"); }, 30000),
                     "no new live order was written");
            // Contact name, then Enter through the header boxes to "Start Order", pressed by Space.
            kb.type(QStringLiteral("Ann"));
            kb.keys({QStringLiteral("Return"), QStringLiteral("Return"), QStringLiteral("Return"),
                     QStringLiteral("Return"), QStringLiteral("space")});
            QVERIFY2(waitUntil([&] { return watch.orderField(QStringLiteral("name")) == QLatin1String("Ann"); }, 30000),
                     "the header was not saved by Start Order");

            int units = 0;
            for (int i = 0; i < FirstRun.size(); ++i) {
                enterLine(kb, FirstRun[i]);
                units += FirstRun[i].qty.toInt();
                QVERIFY2(
                    waitUntil(
                        [&] {
                            return watch.lineCount() == i + 1 && watch.lineQty(FirstRun[i].code) == FirstRun[i].qty &&
                                   watch.orderField(QStringLiteral("totalval")) == total(units);
                        },
                        30000),
                    qPrintable(
                        QStringLiteral("line %1 (%2) never reached the database").arg(i + 1).arg(FirstRun[i].code)));
            }
            for (int i = 0; i + 1 < unconfirmed.size(); i += 2) {
                if (unconfirmed[i] == QLatin1String("type"))
                    kb.type(unconfirmed[i + 1]);
                else
                    kb.keys({unconfirmed[i + 1]});
            }
            // Let the program take the keys in before the end comes.
            QThread::msleep(500);

            ::kill(static_cast<pid_t>(ordwell.processId()), SIGKILL);
            QVERIFY(ordwell.waitForFinished(10000));
            QCOMPARE(ordwell.exitStatus(), QProcess::CrashExit);
        }

        // Second run: opening the vendor announces the live order and the form takes it up.
        OrdwellProcess ordwell;
        startOrdwell(ordwell);
        QVERIFY2(ordwell.waitForStarted(10000), qPrintable(ordwell.errorString()));
        const QString mainWindow = kb.waitForWindow(QStringLiteral("Ordwell"), MainWidth);
        QVERIFY2(!mainWindow.isEmpty(),
                 qPrintable(QStringLiteral("the main window never showed after the kill; running: %1; %2")
                                .arg(ordwell.state() == QProcess::Running)
                                .arg(kb.describeScreen())));
        openVendor(kb, mainWindow);
        const QString notice = kb.waitForWindow(QStringLiteral("System Recovery"), 0);
        QVERIFY2(!notice.isEmpty(),
                 qPrintable(QStringLiteral("no recovery notice on opening the vendor; ") + kb.describeScreen()));
        kb.focus(notice);
        kb.keys({QStringLiteral("Return")});
        QVERIFY(waitUntil([&] { return kb.windows(QStringLiteral("System Recovery")).isEmpty(); }, 30000));
        // The order form activates with the main window, then recovers the order.
        kb.focus(mainWindow);

        VendorFileWatch watch(vendorFile);
        QCOMPARE(watch.orderCount(), 1);
        QCOMPARE(watch.orderField(QStringLiteral("status")), QStringLiteral("L"));
        QCOMPARE(watch.lineCount(), FirstRun.size());
        for (const Line& line : FirstRun)
            QCOMPARE(watch.lineQty(line.code), line.qty);
        QCOMPARE(watch.orderField(QStringLiteral("totalval")), total(4 + 12 + 1));

        // Entry goes on in the recovered order, from its code box.
        QThread::msleep(2000);
        enterLine(kb, SecondRun);
        const int units = 4 + 12 + 1 + 2;
        QVERIFY2(waitUntil(
                     [&] {
                         return watch.lineCount() == FirstRun.size() + 1 &&
                                watch.lineQty(SecondRun.code) == SecondRun.qty &&
                                watch.orderField(QStringLiteral("totalval")) == total(units);
                     },
                     30000),
                 "the recovered order did not take a further line");
        QCOMPARE(watch.orderCount(), 1);

        // Leaving the form ends the entry: the order and all four lines become "E".
        kb.keys({QStringLiteral("alt+x")});
        // The order is written before its lines: wait for both.
        QVERIFY2(waitUntil(
                     [&] {
                         return watch.orderField(QStringLiteral("status")) == QLatin1String("E") &&
                                watch.value(QStringLiteral("SELECT COUNT(*) FROM orderline WHERE orderid = ? AND "
                                                           "status = 'E'"),
                                            {OrderNumber}) == QString::number(FirstRun.size() + 1);
                     },
                     30000),
                 "Exit did not end the recovered order's entry");
        QCOMPARE(watch.orderField(QStringLiteral("totalval")), total(units));

        ordwell.kill();
        QVERIFY(ordwell.waitForFinished(10000));
    }
};

QTEST_MAIN(TestKilledProcess)

#include "tst_killedprocess.moc"
