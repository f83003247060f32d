// Export as the user does it: "&Export Order" on the order form, the order chosen from the list,
// the file read back from the desktop, for an order with one-space notes and a cancelled line;
// and a file already on the desktop. Lines without items, orders without lines and the fields
// of each record are the export core's tests.
#include "OrderFixture.h"
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

// A printed order of two blue pens.
void printedOrder(OrderSession& s) {
    s.addItem(QStringLiteral("A1"), QStringLiteral("Blue pens"), QStringLiteral("1.50"));
    s.addOrder(Id, QStringLiteral("P"), Money::fromPence(300));
    s.addLine(Id, 1, QStringLiteral("A1"), 2, Money::fromPence(150), QStringLiteral("P"));
}

} // namespace

class TestExportForm : public test::StrictTest {
    Q_OBJECT

private slots:
    void initTestCase() { test::initTestEnvironment(); }

    // Chosen from the export list: the file on the desktop, records ended by CR LF, the first
    // note dropped for being one space and the second kept; the order and its live lines "X".
    void exportFromTheList() {
        OrderSession s;
        s.addItem(QStringLiteral("A1"), QStringLiteral("Blue pens"), QStringLiteral("1.50"));
        s.addItem(QStringLiteral("A2"), QStringLiteral("Red ink, bottled"), QStringLiteral("2.25"));
        s.addOrder(Id, QStringLiteral("P"), Money::fromPence(600), QStringLiteral(" "), QStringLiteral(" "));
        s.addLine(Id, 1, QStringLiteral("A1"), 4, Money::fromPence(150), QStringLiteral("P"));
        s.addLine(Id, 2, QStringLiteral("A2"), 0, Money::fromPence(225), QStringLiteral("C"));

        OrderForm* form = s.open(QStringLiteral("mnuexpord"));
        QVERIFY(form);
        QCOMPARE(form->ui().lblnavinfo->text(), QStringLiteral("Record 1 of 1"));
        s.prompter().expect(QStringLiteral("The order ABC0000001 has been exported to the desktop sucessfully"));
        s.click(form->ui().cmdnavbutton[2]);
        QCOMPARE(s.prompter().messages.last().title, QStringLiteral("Export Complete"));

        QCOMPARE(
            test::fileContents(QDir(s.ctx().DesktopPath).filePath(QStringLiteral("ABC0000001.csv"))),
            QByteArray(
                "FROM:,Head Office,,1 High St,,,Kent,CT11AA,Ann,01234 567890,ann@example.org\r\n"
                "TO:,CUST7,Acme Supplies,2 Mill Lane,,Leeds,Yorks,LS11AA,Rob Rep,0113 000,,Cat,,,cat@acme.example\r\n"
                "ORDER:,ABC0000001,11/03/2020,Ann,REF1,6.00\r\n"
                "NOTES:,\r\n"
                "NOTES:, \r\n"
                "LINE:1,A1,Blue pens,4,1.5,6.00\r\n"
                "LINE:2,A2,Red ink, bottled,0,2.25,0.00\r\n"));
        QCOMPARE(s.orderStatus(Id), QStringLiteral("X"));
        QCOMPARE(s.lineStatuses(Id), QStringLiteral("XC"));
        QCOMPARE(s.header(6)->text(), QStringLiteral("X - EXPORTED"));
        QCOMPARE(form->ui().lblinfo->text(), QStringLiteral("Order exported"));
        s.click(form->ui().cmdbutton[MainButton::Exit]);
    }

    // A file of that name already on the desktop: refused, the file and the order stay as they
    // were, and the form says so.
    void fileAlreadyOnTheDesktop() {
        OrderSession s;
        printedOrder(s);
        const QString path = QDir(s.ctx().DesktopPath).filePath(QStringLiteral("ABC0000001.csv"));
        QVERIFY(test::writeFile(path, "put here by hand"));
        OrderForm* form = s.open(QStringLiteral("mnuLdOrd"));
        QVERIFY(form);
        s.click(form->ui().cmdnavbutton[2]);
        s.prompter().expect(QStringLiteral("Are you sure you want to export this order?"), MessageAnswer::Yes);
        s.prompter().expect(QStringLiteral("The export file already exists on your desktop, please remove this file "
                                           "before exporting the order again"));
        s.click(form->ui().cmdbutton[MainButton::ExportOrder]);
        QCOMPARE(s.prompter().messages.last().title, QStringLiteral("File Exists"));
        QCOMPARE(s.prompter().messages.last().icon, MessageIcon::Exclamation);
        QCOMPARE(form->ui().lblinfo->text(), QStringLiteral("Order export failed"));
        QCOMPARE(test::fileContents(path), QByteArray("put here by hand"));
        QCOMPARE(s.orderStatus(Id) + s.lineStatuses(Id), QStringLiteral("PP"));
        QCOMPARE(s.header(0)->text(), Id);
        s.click(form->ui().cmdbutton[MainButton::Exit]);
    }

    // "E-mail Order..." on a printed order: sent and marked as an export marks it; when no mail
    // program answers, nothing is marked and the PDF may be saved instead.
    void emailedFromTheForm() {
        OrderSession s;
        ShippedReports::installMissing(s.ctx().dataDir());
        printedOrder(s);
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
        QCOMPARE(s.orderStatus(Id), QStringLiteral("P"));

        qputenv("MAIL_EXIT", "0");
        s.prompter().expect(question, MessageAnswer::Yes);
        s.click(form->ui().cmdemail);
        qputenv("PATH", path);
        QCOMPARE(form->ui().lblinfo->text(), QStringLiteral("Order ABC0000001 e-mailed to cat@acme.example"));
        QCOMPARE(s.orderStatus(Id) + s.lineStatuses(Id), QStringLiteral("XX"));
        QVERIFY(s.header(0)->text().isEmpty());
        s.click(form->ui().cmdbutton[MainButton::Exit]);
    }

    // "Export as Peppol Order..." on a printed order: refused, naming what is missing, until the
    // parties' details are given; then written to the desktop beside the CSV and marked.
    void exportedAsPeppolFromTheForm() {
        OrderSession s;
        printedOrder(s);
        OrderForm* form = s.open(QStringLiteral("mnuLdOrd"));
        QVERIFY(form);
        s.click(form->ui().cmdnavbutton[2]);
        s.click(form->ui().cmdpeppol);
        QVERIFY(s.prompter().messages.last().text.contains(QStringLiteral("- the vendor's country")));
        QCOMPARE(s.orderStatus(Id), QStringLiteral("P"));

        s.giveParties();
        s.click(form->ui().cmdpeppol);
        QCOMPARE(form->ui().lblinfo->text(),
                 QStringLiteral("Order ABC0000001 written to the desktop as ABC0000001.xml"));
        QVERIFY(test::fileContents(QDir(s.ctx().DesktopPath).filePath(QStringLiteral("ABC0000001.xml")))
                    .contains("<cbc:EndpointID schemeID=\"0088\">7300010000001</cbc:EndpointID>"));
        QCOMPARE(s.orderStatus(Id), QStringLiteral("X"));
        s.click(form->ui().cmdbutton[MainButton::Exit]);
    }
};

QTEST_MAIN(TestExportForm)
#include "tst_exportform.moc"
