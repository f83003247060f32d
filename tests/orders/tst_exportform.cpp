// Export as the user does it: "&Export Order" on the order form, the order chosen from the list,
// the file read back from the desktop. The odd orders: no lines, a cancelled line, an item gone
// from the catalogue, one-space notes, and a file already on the desktop.
#include "OrderFixture.h"
#include "common/Sql.h"
#include "orders/OrderEmail.h"
#include "orders/OrderWords.h"
#include "reports/ShippedReports.h"
#include "settings/PeppolParty.h"

#include "common/Sql.h"
#include "orders/OrderEmail.h"
#include "reports/ShippedReports.h"
#include <QDir>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

#include <QTemporaryDir>
#include <QTest>

using namespace ordwell;
using test::OrderSession;

namespace {

const QString Id = QStringLiteral("ABC0000001");
const QString From = QStringLiteral("FROM:,Head Office,,1 High St,,,Kent,CT11AA,Ann,01234 567890,ann@example.org");
const QString To = QStringLiteral("TO:,C1,Acme Ltd,1 Road,,,Kent,CT1 1AA,Rep,,,,,,");

// A line as stored: code, quantity, status; the price is the item's.
struct StoredLine {
    QString code;
    int qty;
    QString status;
};

} // namespace

Q_DECLARE_METATYPE(QList<StoredLine>)

class TestExportForm : public test::StrictTest {
    Q_OBJECT

    static void addOrder(OrderSession& s, const QString& note1, const QString& note2, const QList<StoredLine>& lines) {
        qint64 total = 0;
        int number = 0;
        for (const StoredLine& line : lines) {
            const qint64 price =
                s.value(QStringLiteral("SELECT price FROM items WHERE code = ?"), {line.code}).toLongLong();
            const qint64 value = line.status == OrderStatus::Cancelled ? 0 : price * line.qty;
            total += value;
            const Status done =
                Sql::run(s.db(),
                         QStringLiteral("INSERT INTO orderline (orderid, line, code, linedate, status, qty, price, "
                                        "lineval, recvqty, recvdate) VALUES (?, ?, ?, '2020-03-11', ?, ?, ?, ?, 0, "
                                        "'1980-07-04')"),
                         {Id, ++number, line.code, line.status, line.qty, price, value});
            QVERIFY2(done, qPrintable(done.message()));
        }
        const Status done =
            Sql::run(s.db(),
                     QStringLiteral(
                         "INSERT INTO orderhead (orderid, orderdate, name, reference, status, totalval, reprintcount, "
                         "note1, note2) VALUES (?, '2020-03-11', 'Ann', 'R1', 'P', ?, 0, ?, ?)"),
                     {Id, total, Sql::textOrNull(note1), Sql::textOrNull(note2)});
        QVERIFY2(done, qPrintable(done.message()));
    }

    // The file's records, split at CR LF; a last record without one is marked.
    static QStringList records(const QString& path) {
        QStringList list = QString::fromUtf8(test::fileContents(path)).split(QStringLiteral("\r\n"));
        if (list.last().isEmpty())
            list.removeLast();
        else
            list << QStringLiteral("(last record without CR LF)");
        return list;
    }

private slots:
    void initTestCase() { test::initTestEnvironment(); }

    void exportFromTheList_data() {
        QTest::addColumn<QString>("note1");
        QTest::addColumn<QString>("note2");
        QTest::addColumn<QList<StoredLine>>("lines");
        QTest::addColumn<QString>("deletedItem");
        // The records after FROM and TO.
        QTest::addColumn<QStringList>("expected");
        QTest::addColumn<QString>("statusesAfter");

        const QString P = OrderStatus::Printed;
        const QString C = OrderStatus::Cancelled;
        QTest::newRow("no lines: five records")
            << QString() << QString() << QList<StoredLine>{} << QString()
            << QStringList{QStringLiteral("ORDER:,ABC0000001,11/03/2020,Ann,R1,0.00"), QStringLiteral("NOTES:,"),
                           QStringLiteral("NOTES:,")}
            << QString();
        QTest::newRow("cancelled line written with its quantity, value 0.00")
            << QStringLiteral("Ring first") << QStringLiteral("Back door")
            << QList<StoredLine>{{QStringLiteral("A1"), 4, P},
                                 {QStringLiteral("A2"), 0, C},
                                 {QStringLiteral("A1"), 900, P}}
            << QString()
            << QStringList{QStringLiteral("ORDER:,ABC0000001,11/03/2020,Ann,R1,1,356.00"),
                           QStringLiteral("NOTES:,Ring first"),
                           QStringLiteral("NOTES:,Back door"),
                           QStringLiteral("LINE:1,A1,Blue pens,4,1.5,6.00"),
                           QStringLiteral("LINE:2,A2,Red ink, bottled,0,2.25,0.00"),
                           QStringLiteral("LINE:3,A1,Blue pens,900,1.5,1,350.00")}
            << QStringLiteral("XCX");
        QTest::newRow("item gone from the catalogue")
            << QString() << QString() << QList<StoredLine>{{QStringLiteral("A3"), 2, P}, {QStringLiteral("A1"), 1, P}}
            << QStringLiteral("A3")
            << QStringList{QStringLiteral("ORDER:,ABC0000001,11/03/2020,Ann,R1,15.50"), QStringLiteral("NOTES:,"),
                           QStringLiteral("NOTES:,"), QStringLiteral("LINE:1,A3,No Item Found!,2,7,14.00"),
                           QStringLiteral("LINE:2,A1,Blue pens,1,1.5,1.50")}
            << QStringLiteral("XX");
        QTest::newRow("one-space notes: dropped in the first, kept in the second")
            << QStringLiteral(" ") << QStringLiteral(" ") << QList<StoredLine>{{QStringLiteral("A2"), 1, P}}
            << QString()
            << QStringList{QStringLiteral("ORDER:,ABC0000001,11/03/2020,Ann,R1,2.25"), QStringLiteral("NOTES:,"),
                           QStringLiteral("NOTES:, "), QStringLiteral("LINE:1,A2,Red ink, bottled,1,2.25,2.25")}
            << QStringLiteral("X");
    }

    // Chosen from the export list: the file on the desktop, the order and its live lines "X".
    void exportFromTheList() {
        QFETCH(QString, note1);
        QFETCH(QString, note2);
        QFETCH(QList<StoredLine>, lines);
        QFETCH(QString, deletedItem);
        QFETCH(QStringList, expected);
        QFETCH(QString, statusesAfter);

        OrderSession s;
        s.addItem(QStringLiteral("A1"), QStringLiteral("Blue pens"), QStringLiteral("1.50"));
        s.addItem(QStringLiteral("A2"), QStringLiteral("Red ink, bottled"), QStringLiteral("2.25"));
        s.addItem(QStringLiteral("A3"), QStringLiteral("Gone"), QStringLiteral("7.00"));
        addOrder(s, note1, note2, lines);
        if (!deletedItem.isEmpty())
            QVERIFY(Sql::run(s.db(), QStringLiteral("DELETE FROM items WHERE code = ?"), {deletedItem}));

        OrderForm* form = s.open(QStringLiteral("mnuexpord"));
        QVERIFY(form);
        QCOMPARE(form->ui().lblnavinfo->text(), QStringLiteral("Record 1 of 1"));
        s.prompter().expect(QStringLiteral("The order ABC0000001 has been exported to the desktop sucessfully"));
        s.click(form->ui().cmdnavbutton[2]);
        QCOMPARE(s.prompter().messages.last().title, QStringLiteral("Export Complete"));

        const QStringList written = records(QDir(s.ctx().DesktopPath).filePath(QStringLiteral("ABC0000001.csv")));
        QCOMPARE(written, (QStringList{From, To} + expected));
        QCOMPARE(s.orderStatus(Id), OrderStatus::Exported);
        QCOMPARE(s.lineStatuses(Id), statusesAfter);
        QCOMPARE(s.header(6)->text(), QStringLiteral("X - EXPORTED"));
        QCOMPARE(form->ui().lblinfo->text(), QStringLiteral("Order exported"));
        s.click(form->ui().cmdbutton[MainButton::Exit]);
    }

    // A file of that name already on the desktop: refused whether the order was exported before
    // or not; the file and the order stay as they were, and the form says so.
    void fileAlreadyOnTheDesktop_data() {
        QTest::addColumn<bool>("exportedBefore");
        QTest::newRow("printed order, file put there by hand") << false;
        QTest::newRow("second export of an exported order") << true;
    }
    void fileAlreadyOnTheDesktop() {
        QFETCH(bool, exportedBefore);
        OrderSession s;
        s.addItem(QStringLiteral("A1"), QStringLiteral("Blue pens"), QStringLiteral("1.50"));
        addOrder(s, QString(), QString(), {{QStringLiteral("A1"), 2, OrderStatus::Printed}});
        const QString path = QDir(s.ctx().DesktopPath).filePath(QStringLiteral("ABC0000001.csv"));
        OrderForm* form = s.open(QStringLiteral("mnuLdOrd"));
        QVERIFY(form);
        if (exportedBefore) {
            s.click(form->ui().cmdnavbutton[2]); // taken up as a printed order
            s.prompter().expect(QStringLiteral("Are you sure you want to export this order?"), MessageAnswer::Yes);
            s.prompter().expect(QStringLiteral("The order ABC0000001 has been exported to the desktop sucessfully"));
            s.click(form->ui().cmdbutton[MainButton::ExportOrder]);
            QCOMPARE(s.orderStatus(Id), OrderStatus::Exported);
        } else {
            QVERIFY(test::writeFile(path, "put here by hand"));
            s.click(form->ui().cmdnavbutton[2]);
        }
        const QByteArray before = test::fileContents(path);
        const QString status = s.orderStatus(Id);
        const QString statuses = s.lineStatuses(Id);

        s.prompter().expect(QStringLiteral("Are you sure you want to export this order?"), MessageAnswer::Yes);
        s.prompter().expect(QStringLiteral("The export file already exists on your desktop, please remove this file "
                                           "before exporting the order again"));
        s.click(form->ui().cmdbutton[MainButton::ExportOrder]);
        QCOMPARE(s.prompter().messages.last().title, QStringLiteral("File Exists"));
        QCOMPARE(s.prompter().messages.last().icon, MessageIcon::Exclamation);
        QCOMPARE(form->ui().lblinfo->text(), QStringLiteral("Order export failed"));
        QCOMPARE(test::fileContents(path), before);
        QCOMPARE(s.orderStatus(Id), status);
        QCOMPARE(s.lineStatuses(Id), statuses);
        QCOMPARE(s.header(0)->text(), Id);
        s.click(form->ui().cmdbutton[MainButton::Exit]);
    }

    // "E-mail Order..." on a printed order: sent and marked as an export marks it; when no mail
    // program answers, nothing is marked and the PDF may be saved instead.
    void emailedFromTheForm() {
        OrderSession s;
        ShippedReports::installMissing(s.ctx().dataDir());
        Sql::run(s.db(), QStringLiteral("UPDATE vendor SET contactemail = 'cat@acme.example'"));
        s.addItem(QStringLiteral("A1"), QStringLiteral("Blue pens"), QStringLiteral("1.50"));
        addOrder(s, QString(), QString(), {{QStringLiteral("A1"), 2, OrderStatus::Printed}});
        QTemporaryDir bin;
        QVERIFY(test::writeFile(bin.filePath(QStringLiteral("xdg-email")), "#!/bin/sh\nexit ${MAIL_EXIT:-0}\n"));
        QFile::setPermissions(bin.filePath(QStringLiteral("xdg-email")),
                              QFileDevice::ReadOwner | QFileDevice::WriteOwner | QFileDevice::ExeOwner);
        const QByteArray path = qgetenv("PATH");
        qputenv("PATH", bin.path().toLocal8Bit() + ':' + path);
        const QString question = QStringLiteral("Are you sure you want to e-mail order ABC0000001 to the vendor?");

        OrderForm* form = s.open(QStringLiteral("mnuLdOrd"));
        QVERIFY(form);
        s.click(form->ui().cmdnavbutton[2]);
        qputenv("MAIL_EXIT", "3");
        const QString pdf =
            QDir::toNativeSeparators(QDir(OrderEmail::outgoingFolder()).filePath(QStringLiteral("ABC0000001.pdf")));
        s.prompter().expect(question, MessageAnswer::Yes);
        s.prompter().expect(QStringLiteral("No mail program answered (xdg-email: exit code 3). The order's PDF is ") +
                                pdf + QStringLiteral(".\n\nSave the order's PDF instead?"),
                            MessageAnswer::Yes);
        const QString saved = QDir(s.ctx().DesktopPath).filePath(QStringLiteral("order.pdf"));
        s.prompter().queueFile(saved);
        s.click(form->ui().cmdemail);
        QVERIFY(test::fileContents(saved).startsWith("%PDF"));
        QCOMPARE(s.orderStatus(Id), OrderStatus::Printed);

        qputenv("MAIL_EXIT", "0");
        s.prompter().expect(question, MessageAnswer::Yes);
        s.click(form->ui().cmdemail);
        qputenv("PATH", path);
        QCOMPARE(form->ui().lblinfo->text(), QStringLiteral("Order ABC0000001 e-mailed to cat@acme.example"));
        QCOMPARE(s.orderStatus(Id), OrderStatus::Exported);
        QCOMPARE(s.lineStatuses(Id), QStringLiteral("X"));
        QVERIFY(s.header(0)->text().isEmpty());
        s.click(form->ui().cmdbutton[MainButton::Exit]);
    }

    // "Export as Peppol Order..." on a printed order: refused, naming what is missing, until the
    // parties' details are given; then written to the desktop beside the CSV and marked.
    void exportedAsPeppolFromTheForm() {
        OrderSession s;
        s.addItem(QStringLiteral("A1"), QStringLiteral("Blue pens"), QStringLiteral("1.50"));
        addOrder(s, QString(), QString(), {{QStringLiteral("A1"), 2, OrderStatus::Printed}});
        OrderForm* form = s.open(QStringLiteral("mnuLdOrd"));
        QVERIFY(form);
        s.click(form->ui().cmdnavbutton[2]);
        s.prompter().expect(QStringLiteral("The order ABC0000001 cannot be written as a Peppol order until these "
                                           "details are given with \"Electronic Ordering...\" in the System "
                                           "Defaults and vendor windows:\n- the organisation's electronic address "
                                           "scheme\n- the organisation's electronic address\n- the organisation's "
                                           "legal name\n- the organisation's country\n- the organisation's "
                                           "currency\n- the vendor's electronic address scheme\n- the vendor's "
                                           "electronic address\n- the vendor's legal name\n- the vendor's country"));
        s.click(form->ui().cmdpeppol);
        QCOMPARE(s.orderStatus(Id), OrderStatus::Printed);

        QVERIFY(
            PeppolPartyStore::save(s.ctx().systemDb(), PeppolSide::Organisation,
                                   {QStringLiteral("0088"), QStringLiteral("5012345000008"),
                                    QStringLiteral("Head Office Ltd"), QStringLiteral("GB"), QStringLiteral("GBP")}));
        QVERIFY(PeppolPartyStore::save(s.db(), PeppolSide::Vendor,
                                       {QStringLiteral("9932"),
                                        QStringLiteral("GB123456789"),
                                        QStringLiteral("Acme Supplies plc"),
                                        QStringLiteral("GB"),
                                        {}}));
        s.click(form->ui().cmdpeppol);
        QCOMPARE(form->ui().lblinfo->text(),
                 QStringLiteral("Order ABC0000001 written to the desktop as ABC0000001.xml"));
        QVERIFY(test::fileContents(QDir(s.ctx().DesktopPath).filePath(QStringLiteral("ABC0000001.xml")))
                    .contains("<cbc:EndpointID schemeID=\"9932\">GB123456789</cbc:EndpointID>"));
        QCOMPARE(s.orderStatus(Id), OrderStatus::Exported);
        s.click(form->ui().cmdbutton[MainButton::Exit]);
    }
};

QTEST_MAIN(TestExportForm)
#include "tst_exportform.moc"
