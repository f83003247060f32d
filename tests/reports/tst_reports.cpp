// The report engine end to end: the shipped reports rendered from known orders and read back
// from the PDF, each vendor's own data, bad report files, the report windows and the
// headless command line.
#include "ReportFixture.h"
#include "app/MenuMasks.h"
#include "app/VendorSession.h"
#include "common/Sql.h"
#include "reports/ReportEngine.h"
#include "reports/ReportViewer.h"
#include "reports/ReportWindows.h"
#include "reports/ShippedReports.h"
#include "shell/MainWindow.h"
#include "store/Store.h"
#include "support/TestSupport.h"

#include <QAction>
#include <QDir>
#include <QFile>
#include <QLabel>
#include <QMdiArea>
#include <QPrintPreviewWidget>
#include <QProcess>
#include <QPushButton>
#include <QRegularExpression>
#include <QTest>
#include <unistd.h>

using namespace ordwell;
using namespace ordwell::test;

namespace {

const QString Address = QStringLiteral("Acme Stores,1 High St,Town,Shire,AB1 2CD");
const QString Contact = QStringLiteral("Pat Smith,01234 567890,pat@acme.example");

QString pdfText(const QString& pdf) {
    QProcess p;
    p.start(QStringLiteral("pdftotext"), {pdf, QStringLiteral("-")});
    if (!p.waitForFinished(30000) || p.exitCode() != 0)
        return QStringLiteral("pdftotext failed: ") + QString::fromLocal8Bit(p.readAllStandardError());
    return QString::fromUtf8(p.readAllStandardOutput());
}

void expectAll(const QString& text, const QStringList& expected) {
    for (const QString& e : expected)
        QVERIFY2(text.contains(e), qPrintable(e + QStringLiteral(" missing from:\n") + text));
}

} // namespace

class TestReports : public StrictTest {
    Q_OBJECT
private slots:
    void initTestCase() {
        initTestEnvironment();
        // Without a runtime folder Qt says so on standard error, which the headless runs keep empty.
        qputenv("XDG_RUNTIME_DIR", QFile::encodeName(m_runtime.path()));
    }

    void init() {
        beginStrictTest();
        m_folders = std::make_unique<TestFolders>();
        m_abc = std::make_unique<ReportFixture>(m_folders->dataDir(), "ABC", "Bolt & Nut Supplies");
        m_abc->addStandardOrders();
        QVERIFY(ShippedReports::installMissing(m_folders->dataDir()).isEmpty());
    }
    void cleanup() {
        m_xyz.reset();
        m_abc.reset();
        m_folders.reset();
        endStrictTest();
    }

    void orderForm() {
        const QString text =
            render("ordform.rpt", {{"ordnum", "ABC0000001"}, {"custadd", Address}, {"contdet", Contact}});
        expectAll(text,
                  {"Purchase Order ABC0000001", Address, Contact, "Bolt & Nut Supplies", "7 Dock Road", "CUST-ABC",
                   "11/03/2024", "Jo Bloggs", "REF-1", "Deliver to the back door", "Ring before noon"});
        // The lines, each price to the penny, and the total without the cancelled line, which
        // is not sent to the vendor.
        expectAll(text, {"Bolt 10 mm & washer", "Nut <M10>", "2.50", "10.00", "0.13", "1.25", "Total 11.25", "2 lines",
                         "Page 1 of 1"});
        QVERIFY(!text.contains(QLatin1String("Split pin")));
    }

    void outstandingItems() {
        const QString text = render("outitms.rpt");
        // Outstanding: 3 bolts (7.50) and 10 nuts (1.25) on order 1; 2 bolts (5.00) on order 2.
        expectAll(text,
                  {"Order ABC0000001 of 11/03/2024, Exported, Jo Bloggs, reference REF-1",
                   "Order ABC0000001: 2 lines outstanding", "8.75", "Order ABC0000002 of 12/03/2024, Part received",
                   "Order ABC0000002: 1 lines outstanding", "13.75", "Page 1 of 1", "Bolt & Nut Supplies (ABC)"});
        for (const char* absent : {"ABC0000003", "ABC0000004", "ABC0000005", "Split pin"})
            QVERIFY2(!text.contains(QLatin1String(absent)), absent);
    }

    void orderHistory() {
        m_abc->addOrder("ABC0000006", "2024-04-02", "E");
        m_abc->addLine("ABC0000006", 1, "PIN", "E", 20, Money::fromPence(5));
        const QString text = render("vendhist.rpt");
        // Newest first, under the month each was placed in.
        const qsizetype list = text.indexOf(QLatin1String("Orders, newest"));
        QVERIFY(list > 0);
        const qsizetype april = text.indexOf(QLatin1String("April 2024: 1 orders, 1.00"), list);
        const qsizetype march = text.indexOf(QLatin1String("March 2024: 5 orders, 25.10"), list);
        QVERIFY2(april > list && march > april, qPrintable(text));
        QVERIFY(text.indexOf(QLatin1String("ABC0000006"), list) > april);
        qsizetype previous = march;
        for (const char* id : {"ABC0000005", "ABC0000004", "ABC0000003", "ABC0000002", "ABC0000001"}) {
            const qsizetype at = text.indexOf(QLatin1String(id), list);
            QVERIFY2(at > previous, id);
            previous = at;
        }
        expectAll(text, {"Printed", "Part received", "Received", "Cancelled", "Exported", "20/03/2024", "7.85", "11.25",
                         "25.10", "Page 1 of 1"});
    }

    // Each vendor's reports read that vendor's database and nothing else.
    void eachVendorReadsItsOwnDatabase() {
        m_xyz = std::make_unique<ReportFixture>(m_folders->dataDir(), "XYZ", "Xylo Trading");
        m_xyz->addItem("XYLO", "Xylophone", Money::fromPence(9900));
        m_xyz->addOrder("XYZ0000001", "2024-05-01", "X");
        m_xyz->addLine("XYZ0000001", 1, "XYLO", "X", 2, Money::fromPence(9900));
        for (const QString& file : ShippedReports::fileNames()) {
            if (file == Store::DefaultOrderFormFileName)
                continue;
            const QString abc = render(file);
            const QString xyz = render(file, {}, "XYZ", "Xylo Trading");
            QVERIFY(abc.contains(QLatin1String("ABC0000001")) && !abc.contains(QLatin1String("XYZ0000001")));
            QVERIFY(xyz.contains(QLatin1String("XYZ0000001")) && !xyz.contains(QLatin1String("ABC0000001")));
            QVERIFY(xyz.contains(QLatin1String("198.00")));
        }
        // The order form of one vendor does not find the other's order.
        const QString wrong = render("ordform.rpt", {{"ordnum", "ABC0000001"}}, "XYZ", "Xylo Trading");
        QVERIFY(wrong.contains(QLatin1String("There is no order ABC0000001")));
    }

    // The worked example in the report-file guide is a report that runs and means what it says.
    void guideExampleRuns() {
        QFile guide(QStringLiteral(ORDWELL_SOURCE_DIR "/docs/reports.md"));
        QVERIFY(guide.open(QIODevice::ReadOnly));
        const QString text = QString::fromUtf8(guide.readAll());
        const qsizetype start = text.indexOf(QLatin1String("```ini\n"));
        const qsizetype end = text.indexOf(QLatin1String("```"), start + 7);
        QVERIFY(start >= 0 && end > start);
        QVERIFY(writeFile(m_folders->dataFile(QStringLiteral("expiring.rpt")),
                          text.mid(start + 7, end - start - 7).toUtf8()));
        QVERIFY(
            Sql::run(m_abc->db(), QStringLiteral("UPDATE items SET priceexp = CASE code WHEN 'BOLT10' THEN "
                                                 "'2025-02-10' WHEN 'NUT10' THEN '2025-03-31' ELSE '2026-01-01' END")));
        const QString out = render("expiring.rpt", {{"before", "2025-12-31"}});
        expectAll(out, {"Prices Running Out", "Bolt & Nut Supplies (ABC)", "before 31/12/2025", "2025-02: 1 items",
                        "2025-03: 1 items", "Bolt 10 mm & washer", "2.50", "10/02/2025", "Nut <M10>", "Page 1 of 1"});
        QVERIFY(!out.contains(QLatin1String("Split pin")));
    }

    void badReportFiles_data() {
        QTest::addColumn<QString>("content"); // empty: no file at all
        QTest::addColumn<QString>("extraParameter");
        QTest::addColumn<QString>("problem");
        // Each way the engine refuses a file; the parser's own refusals are its test's.
        auto row = [](const char* name, const QString& body, const char* extraParameter, const char* problem) {
            QTest::newRow(name) << (body.isEmpty() ? body : QStringLiteral("[report]\ntitle = Bad\n") + body)
                                << QString::fromUtf8(extraParameter) << QString::fromUtf8(problem);
        };
        row("missing", {}, "", "the file does not exist");
        QTest::newRow("not a report") << QStringLiteral("just some text\n") << QString()
                                      << QStringLiteral("line 1: text before the first section");
        row("sql error", "[query q]\nSELECT nosuch FROM orderhead\n[body]\nx\n", "",
            "query \"q\" (line 3) could not run: no such column: nosuch");
        row("unknown parameter given", "[body]\nx\n", "colour", "the report has no parameter \"colour\"");
        row("required parameter missing", "[parameter ordnum]\nlabel = Order number\n[body]\n{{ordnum}}\n", "",
            "no value was given for the parameter \"ordnum\" (Order number)");
        row("write hidden in WITH", "[query q]\nWITH x AS (SELECT 1) DELETE FROM orderhead\n[body]\nx\n", "",
            "query \"q\" (line 3) tried to change the database; a report may only read");
        row("column not in parent",
            "[query a]\nSELECT orderid FROM orderhead\n[query b in a]\n"
            "SELECT * FROM orderline WHERE orderid = :nosuch\n[body]\nx\n",
            "", "uses :nosuch, which is neither a parameter nor a column of query \"a\"");
        row("helper as a value", "[body]\n{{money}}\n", "", "in [body]: money, date and longdate are used as sections");
    }
    void badReportFiles() {
        QFETCH(QString, content);
        QFETCH(QString, extraParameter);
        QFETCH(QString, problem);
        const QString file = m_folders->dataFile(QStringLiteral("bad.rpt"));
        if (!content.isEmpty())
            QVERIFY(writeFile(file, content.toUtf8()));
        const QByteArray before = fileContents(m_abc->databasePath());
        ReportRequest request = requestFor(file);
        if (!extraParameter.isEmpty())
            request.parameters.insert(extraParameter, QStringLiteral("red"));
        const QString pdf = m_folders->dataFile(QStringLiteral("bad.pdf"));
        const Status status = ReportEngine::renderToPdf(request, pdf);
        QVERIFY(!status);
        QVERIFY2(status.message().startsWith(QStringLiteral("The report file \"%1\" could not be used: ").arg(file)),
                 qPrintable(status.message()));
        QVERIFY2(status.message().contains(problem), qPrintable(status.message()));
        QVERIFY(!status.message().contains(QLatin1Char('\n')));
        QVERIFY(!QFile::exists(pdf));
        QCOMPARE(fileContents(m_abc->databasePath()), before);
        QCOMPARE(Sql::scalar(m_abc->db(), QStringLiteral("SELECT COUNT(*) FROM orderhead WHERE status = 'C'"))->toInt(),
                 1);
    }

    void unreadableReportFile() {
        const QString dir = m_folders->dataFile(QStringLiteral("folder.rpt"));
        QVERIFY(QDir().mkpath(dir));
        const Status status = ReportEngine::renderToPdf(requestFor(dir), m_folders->dataFile(QStringLiteral("x.pdf")));
        QVERIFY(status.message().contains(QLatin1String("it is not a file")));
        if (geteuid() == 0)
            return; // the super-user reads everything
        const QString file = m_folders->dataFile(QStringLiteral("locked.rpt"));
        QVERIFY(writeFile(file, "[report]\ntitle = T\n[body]\nx\n"));
        QFile::setPermissions(file, QFileDevice::WriteOwner);
        const Status locked = ReportEngine::renderToPdf(requestFor(file), m_folders->dataFile(QStringLiteral("x.pdf")));
        QVERIFY2(locked.message().contains(QLatin1String("could not be read")), qPrintable(locked.message()));
    }

    void missingVendorDatabase() {
        ReportRequest request = requestFor(m_folders->dataFile(QStringLiteral("vendhist.rpt")));
        request.databaseFile = m_folders->dataFile(QStringLiteral("QQQvendor.mdb"));
        const Status status = ReportEngine::renderToPdf(request, m_folders->dataFile(QStringLiteral("x.pdf")));
        QVERIFY(status.message().contains(QLatin1String("QQQvendor.mdb\" does not exist")));
        QVERIFY(!QFile::exists(request.databaseFile));
    }

    // A user's own copy is never replaced; a missing one comes back.
    void shippedReportsInstallOnlyWhenMissing() {
        const QString mine = m_folders->dataFile(QStringLiteral("ordform.rpt"));
        QVERIFY(writeFile(mine, "[report]\ntitle = Mine\n[body]\nmine\n"));
        QFile::remove(m_folders->dataFile(QStringLiteral("vendhist.rpt")));
        QVERIFY(ShippedReports::installMissing(m_folders->dataDir()).isEmpty());
        QCOMPARE(fileContents(mine), QByteArray("[report]\ntitle = Mine\n[body]\nmine\n"));
        QCOMPARE(fileContents(m_folders->dataFile(QStringLiteral("vendhist.rpt"))),
                 fileContents(QStringLiteral(":/vendhist.rpt")));
        QVERIFY(QFileInfo(m_folders->dataFile(QStringLiteral("vendhist.rpt"))).isWritable());
    }

    // The menu entries open the viewers inside the main window, for the vendor open now,
    // while a vendor-level tool window holds the menus; the menus and the count stay.
    void reportWindowsFromTheMenu() {
        m_xyz = std::make_unique<ReportFixture>(m_folders->dataDir(), "XYZ", "Xylo Trading");
        m_xyz->addOrder("XYZ0000001", "2024-05-01", "X");
        TestContext tc;
        // The fixtures made the data in a folder of their own; the context works on that one.
        AppContext context(m_folders->dataDir(), tc.folders().settingsFile(), tc.prompter());
        context.DesktopPath = m_folders->desktopDir();
        storeOrganisationDetails(context);
        auto window = openMainWindow(context);
        openVendor(context);
        context.ApplyMenuMask(MenuMasks::VendorWindow);
        ++context.OpenWindowCount; // as the order window would
        const auto enabledBefore = enabledEntries(*window);

        QVERIFY(window->menuEntry(QStringLiteral("mnurptoutitms"))->isEnabled());
        window->triggerMenu(QStringLiteral("mnurptoutitms"));
        ReportViewer* outstanding = findReportViewer(QStringLiteral("frmrptoutitm"));
        QVERIFY(outstanding);
        auto* preview = outstanding->findChild<QPrintPreviewWidget*>(QStringLiteral("CRViewer91"));
        QVERIFY(preview);
        QCOMPARE(preview->pageCount(), 1);

        window->triggerMenu(QStringLiteral("mnurptOrdhist"));
        ReportViewer* history = findReportViewer(QStringLiteral("frmrpordhist"));
        QVERIFY(history);
        QVERIFY(history->report()->bodyHtml().contains(QLatin1String("ABC0000001")));
        QCOMPARE(context.OpenWindowCount, 1);
        QCOMPARE(enabledEntries(*window), enabledBefore);
        QVERIFY(tc.prompter().messages.isEmpty());

        // Another vendor: asking again refills the same window from that vendor's database.
        openVendor(context, "XYZ", "Xylo Trading");
        window->triggerMenu(QStringLiteral("mnurptOrdhist"));
        QCOMPARE(findReportViewer(QStringLiteral("frmrpordhist")), history);
        QVERIFY(history->report()->bodyHtml().contains(QLatin1String("XYZ0000001")));
        QVERIFY(!history->report()->bodyHtml().contains(QLatin1String("ABC0000001")));
        QCOMPARE(window->mdiArea()->subWindowList().size(), 2);

        // A broken report file is told, names the file, opens nothing more and changes nothing.
        outstanding->parentWidget()->close();
        QTRY_VERIFY(!findReportViewer(QStringLiteral("frmrptoutitm")));
        const QString file = m_folders->dataFile(QStringLiteral("outitms.rpt"));
        QVERIFY(writeFile(file, "[report]\ntitle = X\n[query q]\nSELECT nosuch FROM items\n[body]\nx\n"));
        window->triggerMenu(QStringLiteral("mnurptoutitms"));
        QCOMPARE(tc.prompter().messages.size(), 1);
        QCOMPARE(tc.prompter().messages.first().icon, MessageIcon::Critical);
        QCOMPARE(tc.prompter().messages.first().title, QStringLiteral("Outstanding Items"));
        QVERIFY(tc.prompter().lastText().contains(file));
        QVERIFY(tc.prompter().lastText().contains(QLatin1String("no such column: nosuch")));
        QVERIFY(!findReportViewer(QStringLiteral("frmrptoutitm")));
        QCOMPARE(context.OpenWindowCount, 1);
        --context.OpenWindowCount;
        history->parentWidget()->close();
        context.closeVendorDb();
        window->exitProgram();
    }

    // A history over many pages, shown and saved as PDF: every page numbered, the column headings
    // again on each page the orders run on to, and every order printed once (a row cut by a page
    // break would be drawn on both pages).
    void historyOverManyPages() {
        for (int i = 0; i < 300; ++i)
            m_abc->addOrder(QStringLiteral("ABC%1").arg(1000 + i, 7, 10, QLatin1Char('0')),
                            QStringLiteral("2023-%1-%2")
                                .arg(1 + i / 100, 2, 10, QLatin1Char('0'))
                                .arg(1 + i % 28, 2, 10, QLatin1Char('0')),
                            QStringLiteral("R"), QStringLiteral("Buyer %1").arg(i % 7), QStringLiteral("REF%1").arg(i));
        ScriptedPrompter prompter;
        AppContext context(m_folders->dataDir(), m_folders->settingsFile(), prompter);
        context.DesktopPath = m_folders->desktopDir();
        openVendor(context);
        ShowOrderHistoryReport(context);
        ReportViewer* viewer = findReportViewer(QStringLiteral("frmrpordhist"));
        QVERIFY(viewer);
        const int pages = viewer->pageCount();
        QVERIFY(pages >= 4);
        auto* label = viewer->findChild<QLabel*>(QStringLiteral("lblpage"));
        auto button = [viewer](const char* name) { return viewer->findChild<QPushButton*>(QString::fromLatin1(name)); };
        QCOMPARE(label->text(), QStringLiteral("Page 1 of %1").arg(pages));
        QVERIFY(!button("cmdprevious")->isEnabled());
        button("cmdnext")->click();
        QCOMPARE(label->text(), QStringLiteral("Page 2 of %1").arg(pages));
        button("cmdlast")->click();
        QCOMPARE(label->text(), QStringLiteral("Page %1 of %1").arg(pages));
        QVERIFY(!button("cmdnext")->isEnabled());
        button("cmdfirst")->click();
        QCOMPARE(viewer->currentPage(), 1);
        const qreal zoom = viewer->preview()->zoomFactor();
        button("cmdzoomin")->click();
        QVERIFY(viewer->preview()->zoomFactor() > zoom);

        // Save as PDF asks where through the prompter and writes every page.
        const QString pdf = QDir(m_folders->desktopDir()).filePath(QStringLiteral("history"));
        prompter.queueFile(pdf);
        button("cmdsavepdf")->click();
        QCOMPARE(prompter.saveRequests.size(), 1);
        QVERIFY(prompter.saveRequests.first().startFolder.endsWith(QLatin1String("Order History ABC.pdf")));
        const QString text = pdfText(pdf + QStringLiteral(".pdf"));
        const QStringList shown = text.split(QLatin1Char('\f'), Qt::SkipEmptyParts);
        QCOMPARE(shown.size(), pages);
        for (int page = 1; page <= pages; ++page)
            expectAll(shown.at(page - 1),
                      {QStringLiteral("Page %1 of %2").arg(page).arg(pages), "Contact / reference"});
        static const QRegularExpression orderId(QStringLiteral("ABC\\d{7}"));
        QHash<QString, int> seen;
        for (const auto& m : orderId.globalMatch(text))
            ++seen[m.captured()];
        QCOMPARE(seen.size(), 305); // and the five standard orders
        for (auto it = seen.cbegin(); it != seen.cend(); ++it)
            QVERIFY2(it.value() == 1, qPrintable(it.key()));
        // Cancelling the question writes nothing and says nothing.
        prompter.queueFile(std::nullopt);
        button("cmdsavepdf")->click();
        QVERIFY(prompter.messages.isEmpty());
        viewer->close();
        context.closeVendorDb();
    }

    // The order-lifecycle side calls this; a failure shows nothing and says why.
    void orderFormWindow() {
        ScriptedPrompter prompter;
        AppContext context(m_folders->dataDir(), m_folders->settingsFile(), prompter);
        const ReportParameterValues values{{"ordnum", "ABC0000001"}, {"custadd", Address}, {"contdet", Contact}};
        const QString missing = m_folders->dataFile(QStringLiteral("ABCordform.rpt"));
        Status shown = showOrderFormReport(context, missing, values);
        QVERIFY(shown.message().contains(QLatin1String("No vendor is open")));
        openVendor(context);
        shown = showOrderFormReport(context, missing, values);
        QVERIFY(!shown);
        QVERIFY(shown.message().contains(missing) && shown.message().contains(QLatin1String("does not exist")));
        QVERIFY(!findReportViewer(QStringLiteral("frmprintreport")));
        QVERIFY(prompter.messages.isEmpty());

        // A report that leaves "contdet" unused still takes the three values.
        QVERIFY(writeFile(missing, "[report]\ntitle = Short form\n[parameter ordnum]\n[parameter custadd]\n"
                                   "[body]\n<p>{{ordnum}} for {{custadd}}</p>\n"));
        QVERIFY(showOrderFormReport(context, missing, values));
        ReportViewer* viewer = findReportViewer(QStringLiteral("frmprintreport"));
        QVERIFY(viewer);
        QVERIFY(viewer->report()->bodyHtml().contains(QStringLiteral("ABC0000001 for ") + Address));
        QCOMPARE(viewer->windowTitle(), QStringLiteral("Order ABC0000001 - Print Preview"));
        QCOMPARE(context.OpenWindowCount, 0);
        // The same window shown for another order takes that order's title.
        ReportParameterValues next = values;
        next.insert(QStringLiteral("ordnum"), QStringLiteral("ABC0000002"));
        QVERIFY(showOrderFormReport(context, missing, next));
        QCOMPARE(findReportViewer(QStringLiteral("frmprintreport")), viewer);
        QCOMPARE(viewer->windowTitle(), QStringLiteral("Order ABC0000002 - Print Preview"));
        viewer->close();
        context.closeVendorDb();
    }

    // The program itself, as a script would run it: no window, exit code, one-line reason.
    void headlessCommandLine_data() {
        QTest::addColumn<QStringList>("extra");
        QTest::addColumn<int>("exitCode");
        QTest::addColumn<QString>("message"); // on success: text the PDF shows
        const QString report = QStringLiteral("--render-report");
        QTest::newRow("history") << QStringList{report, "vendhist.rpt"} << 0 << QStringLiteral("ABC0000001");
        QTest::newRow("order form") << QStringList{report,    "ordform.rpt",       "--param", "ordnum=ABC0000001",
                                                   "--param", "custadd=" + Address}
                                    << 0 << Address;
        QTest::newRow("unknown parameter") << QStringList{report, "vendhist.rpt", "--param", "colour=red"} << 1
                                           << QStringLiteral("the report has no parameter \"colour\"");
        QTest::newRow("no such vendor") << QStringList{report, "vendhist.rpt", "--vendor", "QQQ"} << 1
                                        << QStringLiteral("There is no vendor with the code \"QQQ\".");
        QTest::newRow("no pdf") << QStringList{report, "vendhist.rpt", "--pdf", QString()} << 2
                                << QStringLiteral("needs --pdf");
    }
    void headlessCommandLine() {
        QFETCH(QStringList, extra);
        QFETCH(int, exitCode);
        QFETCH(QString, message);
        const QString pdf = m_folders->dataFile(QStringLiteral("cli.pdf"));
        const Finished run =
            runHeadless(QStringLiteral(ORDWELL_BINARY),
                        QStringList{"--data-dir", m_folders->dataDir(), "--vendor", "ABC", "--pdf", pdf} + extra);
        const QString err = run.err.trimmed();
        QCOMPARE(run.code, exitCode);
        if (exitCode == 0) {
            QVERIFY2(err.isEmpty(), qPrintable(err));
            QVERIFY(pdfText(pdf).contains(message));
        } else {
            QVERIFY2(err.contains(message), qPrintable(err));
            if (exitCode == 1)
                QVERIFY(!err.contains(QLatin1Char('\n')));
            QVERIFY(!QFile::exists(pdf));
        }
    }

private:
    ReportRequest requestFor(const QString& file, const QString& code = QStringLiteral("ABC"),
                             const QString& name = QStringLiteral("Bolt & Nut Supplies")) const {
        ReportRequest request;
        request.reportFile = file;
        request.databaseFile = Store::vendorDatabasePath(m_folders->dataDir(), code);
        request.vendorCode = code;
        request.vendorName = name;
        return request;
    }

    QString render(const QString& file, const ReportParameterValues& values = {},
                   const QString& code = QStringLiteral("ABC"),
                   const QString& name = QStringLiteral("Bolt & Nut Supplies")) const {
        ReportRequest request = requestFor(m_folders->dataFile(file), code, name);
        request.parameters = values;
        const QString pdf = m_folders->dataFile(QStringLiteral("%1-%2.pdf").arg(code, file));
        const Status written = ReportEngine::renderToPdf(request, pdf);
        if (!written)
            return QStringLiteral("FAILED: ") + written.message();
        return pdfText(pdf);
    }

    static void openVendor(AppContext& context, const QString& code = QStringLiteral("ABC"),
                           const QString& name = QStringLiteral("Bolt & Nut Supplies")) {
        const Status opened = context.vendorSession().open(code, name);
        QVERIFY2(opened, qPrintable(opened.message()));
    }

    static QList<bool> enabledEntries(MainWindow& window) {
        QList<bool> states;
        for (QAction* a : window.maskedEntries())
            states << a->isEnabled();
        return states;
    }

    QTemporaryDir m_runtime;
    std::unique_ptr<TestFolders> m_folders;
    std::unique_ptr<ReportFixture> m_abc;
    std::unique_ptr<ReportFixture> m_xyz;
};

QTEST_MAIN(TestReports)
#include "tst_reports.moc"
