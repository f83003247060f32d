// The order form after entry, driven as the user drives it: lists and their navigation bar,
// taking orders up again, cancelling, recovering, printing, exporting and receiving.
#include "OrderFixture.h"
#include "common/Sql.h"
#include "orders/OrderWords.h"
#include "reports/ShippedReports.h"

#include <QApplication>
#include <QDir>
#include <QFile>
#include <QLabel>
#include <QLineEdit>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QPushButton>
#include <QTableWidget>
#include <QTest>

using namespace ordwell;
using test::OrderSession;

namespace {

const QString Id = QStringLiteral("ABC0000001");
const QString Id2 = QStringLiteral("ABC0000002");
const Money Price = Money::fromPence(150);

QString navMask(OrderForm* form) {
    QString mask;
    for (QPushButton* b : form->ui().cmdnavbutton)
        mask += b->isEnabled() ? QLatin1Char('1') : QLatin1Char('0');
    return mask;
}

// Chooses the list's order with this number by walking the list from its start.
void selectOrder(OrderSession& s, const QString& id) {
    OrderForm* form = s.form();
    s.click(form->ui().cmdnavbutton[0]);
    for (int i = 0; i < 50 && s.header(0)->text() != id; ++i)
        s.click(form->ui().cmdnavbutton[3]);
    QCOMPARE(s.header(0)->text(), id);
    s.click(form->ui().cmdnavbutton[2]);
}

} // namespace

class TestOrderLife : public QObject {
    Q_OBJECT
private slots:
    void initTestCase() { test::initTestEnvironment(); }

    // Masks and position texts of a list of one and of three; the load list leaves out "C"
    // and "R" orders and shows a browsed "E" order's bare letter.
    void browsingLists() {
        OrderSession s;
        s.addOrder(Id, "E");
        s.addOrder(Id2, "C");
        s.addOrder(QStringLiteral("ABC0000003"), "R");
        OrderForm* form = s.open(QStringLiteral("mnuLdOrd"));
        QVERIFY(form);
        const OrderFormControls& ui = form->ui();
        QVERIFY(ui.lblnavinfo->isVisible());
        QCOMPARE(ui.lblnavinfo->text(), QStringLiteral("Record 1 of 1"));
        QCOMPARE(navMask(form), QStringLiteral("00100"));
        QCOMPARE(s.header(6)->text(), QStringLiteral("E"));
        QCOMPARE(ui.lblinfo->text(), QStringLiteral("Please select an order to load"));
        QVERIFY(!ui.cmdbutton[0]->isEnabled());
        s.click(ui.cmdcancelld);
        QVERIFY(!ui.lblnavinfo->isVisible());
        QVERIFY(s.header(0)->text().isEmpty());
        QVERIFY(ui.cmdbutton[0]->isEnabled());

        s.addOrder(QStringLiteral("ABC0000004"), "P");
        s.addOrder(QStringLiteral("ABC0000005"), "X");
        s.click(ui.cmdbutton[MainButton::LoadOrder]);
        QCOMPARE(navMask(form), QStringLiteral("00111"));
        QCOMPARE(ui.lblnavinfo->text(), QStringLiteral("Record 1 of 3"));
        s.click(ui.cmdnavbutton[3]);
        QCOMPARE(navMask(form), QStringLiteral("11111"));
        QCOMPARE(s.header(0)->text(), QStringLiteral("ABC0000004"));
        s.click(ui.cmdnavbutton[4]);
        QCOMPARE(navMask(form), QStringLiteral("11100"));
        QCOMPARE(ui.lblnavinfo->text(), QStringLiteral("Record 3 of 3"));
        QCOMPARE(s.header(6)->text(), QStringLiteral("X"));
        // Browsing wrote nothing.
        QCOMPARE(s.orderStatus(Id), QStringLiteral("E"));
        s.click(ui.cmdcancelld);
    }

    void emptyListsSayNoOrders_data() {
        QTest::addColumn<QString>("menu");
        QTest::addColumn<QString>("text");
        QTest::newRow("load") << QStringLiteral("mnuLdOrd") << "There are no orders to load, please create a new order";
        QTest::newRow("receive") << QStringLiteral("mnuRcvOrd")
                                 << "There are no orders to load, please select a different option";
    }
    void emptyListsSayNoOrders() {
        QFETCH(QString, menu);
        QFETCH(QString, text);
        OrderSession s;
        s.addOrder(Id, "C");
        s.prompter().expect(text);
        OrderForm* form = s.open(menu);
        QCOMPARE(s.prompter().messages.last().title, QStringLiteral("No Orders"));
        QVERIFY(!form->ui().lblnavinfo->isVisible());
        QCOMPARE(QApplication::focusWidget(), form->ui().cmdbutton[0]);
    }

    // An "E" order taken up turns "L" with its live lines, and can then be cancelled: the
    // total is zeroed, every line "C", quantities kept.
    void takeUpAndCancel() {
        OrderSession s;
        s.addOrder(Id, "E", Money::fromPence(600));
        s.addLine(Id, 1, QStringLiteral("A1"), 2, Price, "E");
        s.addLine(Id, 2, QStringLiteral("A2"), 2, Price, "C");
        OrderForm* form = s.open(QStringLiteral("mnuLdOrd"));
        s.click(form->ui().cmdnavbutton[2]);
        QCOMPARE(s.orderStatus(Id), QStringLiteral("L"));
        QCOMPARE(s.lineStatuses(Id), QStringLiteral("LC"));
        QCOMPARE(s.header(6)->text(), QStringLiteral("L - LIVE"));
        QCOMPARE(form->ui().lblinfo->text(), QStringLiteral("Continue entering order details"));
        QCOMPARE(QApplication::focusWidget(), s.entry(0));

        // No keeps entry going in the code box; Yes cancels.
        s.prompter().expect(QStringLiteral("Are you sure you want to cancel this order"), MessageAnswer::No);
        s.click(form->ui().cmdcancelord);
        QCOMPARE(QApplication::focusWidget(), s.entry(0));
        QCOMPARE(s.orderStatus(Id), QStringLiteral("L"));
        s.prompter().expect(QStringLiteral("Are you sure you want to cancel this order"), MessageAnswer::Yes);
        s.click(form->ui().cmdcancelord);
        QCOMPARE(s.orderStatus(Id), QStringLiteral("C"));
        QCOMPARE(s.orderTotal(Id), Money());
        QCOMPARE(s.lineStatuses(Id), QStringLiteral("CC"));
        QCOMPARE(s.lines(Id).first().qty, 2);
        QVERIFY(s.header(0)->text().isEmpty());
    }

    // "&Receive Order" with a shown "X" order asks; No changes nothing. "&Print Order" with
    // a shown "S" order asks nothing and goes to the print list.
    void directQuestions() {
        OrderSession s;
        s.addOrder(Id, "X");
        s.addLine(Id, 1, QStringLiteral("A1"), 4, Price, "X");
        OrderForm* form = s.open(QStringLiteral("mnuLdOrd"));
        s.click(form->ui().cmdnavbutton[2]);
        QCOMPARE(s.header(6)->text(), QStringLiteral("X - EXPORTED"));
        s.prompter().expect(QStringLiteral("Are you sure you want to receive this order?"), MessageAnswer::No);
        s.click(form->ui().cmdbutton[MainButton::ReceiveOrder]);
        QCOMPARE(s.prompter().messages.last().title, QStringLiteral("Receive Order"));
        QCOMPARE(s.orderStatus(Id), QStringLiteral("X"));
        QCOMPARE(s.header(6)->text(), QStringLiteral("X - EXPORTED"));

        s.prompter().expect(QStringLiteral("Are you sure you want to receive this order?"), MessageAnswer::Yes);
        s.click(form->ui().cmdbutton[MainButton::ReceiveOrder]);
        QCOMPARE(s.orderStatus(Id), QStringLiteral("S"));
        QCOMPARE(s.lineStatuses(Id), QStringLiteral("S"));

        s.addOrder(Id2, "E");
        s.click(form->ui().cmdbutton[MainButton::PrintOrder]);
        QCOMPARE(form->ui().lblinfo->text(), QStringLiteral("Please Select an order to print"));
        QCOMPARE(s.header(0)->text(), Id2);
        QCOMPARE(s.orderStatus(Id), QStringLiteral("S"));
        s.click(form->ui().cmdcancelld);
    }

    // Printing through the vendor's order form, stamped with today's date (the reprint rule is
    // the printing core's test), and a missing report file that leaves the order as it was.
    void printing() {
        OrderSession s;
        QVERIFY(ShippedReports::installMissing(s.ctx().dataDir()).isEmpty());
        Sql::run(s.db(), QStringLiteral("UPDATE vendor SET ordform = ?"),
                 {s.ctx().dataFile(QStringLiteral("nothere.rpt"))});
        s.addOrder(Id, "E");
        s.addLine(Id, 1, QStringLiteral("A1"), 4, Price, "E");
        s.addLine(Id, 2, QStringLiteral("A2"), 1, Price, "C");
        OrderForm* form = s.open(QStringLiteral("mnuprtord"));
        s.click(form->ui().cmdnavbutton[2]);
        QCOMPARE(s.prompter().messages.size(), 1);
        QVERIFY(s.prompter().messages.last().text.contains(QStringLiteral("nothere.rpt")));
        QCOMPARE(s.prompter().messages.last().icon, MessageIcon::Critical);
        QCOMPARE(s.orderStatus(Id), QStringLiteral("E"));
        QVERIFY(s.value(QStringLiteral("SELECT printdate FROM orderhead")).isNull());

        Sql::run(s.db(), QStringLiteral("UPDATE vendor SET ordform = ?"),
                 {s.ctx().dataFile(QStringLiteral("ordform.rpt"))});
        s.prompter().expect(QStringLiteral("Are you sure you want to print this order?"), MessageAnswer::Yes);
        s.click(form->ui().cmdbutton[MainButton::PrintOrder]);
        QCOMPARE(form->ui().lblinfo->text(), QStringLiteral("Order Printed"));
        QCOMPARE(s.header(6)->text(), QStringLiteral("P - PRINTED"));
        QCOMPARE(s.orderStatus(Id), QStringLiteral("P"));
        QCOMPARE(s.lineStatuses(Id), QStringLiteral("PC"));
        QCOMPARE(s.value(QStringLiteral("SELECT printdate FROM orderhead")).toDate(), QDate::currentDate());
        QVERIFY(form->ui().cmdcancelord->isVisible());
    }

    // A part-received order taken up from the load list by keys: the grid shows what is still to
    // come, a line received in full cannot be chosen, too many is refused and "0" passes over,
    // neither stored; the last of it closes the order.
    void receivingLineByLine() {
        OrderSession s;
        s.addOrder(Id, "S");
        s.addLine(Id, 1, QStringLiteral("A1"), 10, Price, "S", 4);
        s.addLine(Id, 2, QStringLiteral("A2"), 2, Price, "R", 2);
        s.addLine(Id, 3, QStringLiteral("A3"), 5, Price, "C");
        OrderForm* form = s.open(QStringLiteral("mnuLdOrd"));
        const OrderFormControls& ui = form->ui();
        QCOMPARE(QApplication::focusWidget(), ui.cmdnavbutton[2]);
        QTest::keyClick(ui.cmdnavbutton[2], Qt::Key_Return);
        QCOMPARE(s.header(6)->text(), QStringLiteral("S - PART RECEIVED"));
        QCOMPARE(ui.lblinfo->text(), QStringLiteral("Receiving order"));
        QVERIFY(ui.txtrcvqty->isVisible() && !ui.txtrcvqty->isEnabled());
        QCOMPARE(ui.lblitem[2]->text(), QStringLiteral("Rcv"));
        QCOMPARE(ui.flxitems->item(1, 3)->text(), QStringLiteral("6"));
        QCOMPARE(ui.flxitems->item(2, 3)->text(), QStringLiteral("0"));
        const auto choose = [&ui](int row) {
            ui.flxitems->setFocus();
            ui.flxitems->setCurrentCell(row, 1);
            QTest::keyClick(ui.flxitems, Qt::Key_Return);
        };
        const auto recvqty = [&s] {
            return s.value(QStringLiteral("SELECT recvqty FROM orderline WHERE line = 1")).toInt();
        };
        choose(2);
        QCOMPARE(QApplication::focusWidget(), ui.cmdrecv);
        choose(1);
        QCOMPARE(QApplication::focusWidget(), ui.txtrcvqty);
        s.enter(ui.txtrcvqty, QStringLiteral("7"));
        QVERIFY(ui.txtrcvqty->text().isEmpty());
        QCOMPARE(QApplication::focusWidget(), ui.txtrcvqty);
        s.enter(ui.txtrcvqty, QStringLiteral("0"));
        QCOMPARE(QApplication::focusWidget(), ui.cmdrecv);
        QCOMPARE(recvqty(), 4);
        s.chooseRow(1); // by mouse this time
        s.enter(ui.txtrcvqty, QStringLiteral("3"));
        QCOMPARE(recvqty(), 7);
        QCOMPARE(ui.flxitems->item(1, 3)->text(), QStringLiteral("3"));
        s.prompter().expect(QStringLiteral("All items have been received, the order will now close"));
        choose(1);
        s.enter(ui.txtrcvqty, QStringLiteral("3"));
        QCOMPARE(s.orderStatus(Id), QStringLiteral("R"));
        QCOMPARE(s.lineStatuses(Id), QStringLiteral("RRC"));
        QCOMPARE(recvqty(), 10);
        QCOMPARE(s.value(QStringLiteral("SELECT recvqty FROM orderline WHERE line = 3")).toInt(), 0);
        QVERIFY(s.header(0)->text().isEmpty());
    }

    // "Receive All" on a part-received order closes it without a message; an order whose
    // lines have all come closes as soon as it is taken up.
    void receivingAll() {
        OrderSession s;
        s.addOrder(Id, "S");
        s.addLine(Id, 1, QStringLiteral("A1"), 10, Price, "S", 4);
        s.addOrder(Id2, "S");
        s.addLine(Id2, 1, QStringLiteral("A1"), 2, Price, "R", 2);
        OrderForm* form = s.open(QStringLiteral("mnuRcvOrd"));
        selectOrder(s, Id);
        s.prompter().expect(QStringLiteral("Do you want to receive all items in the order?"), MessageAnswer::Yes);
        s.click(form->ui().cmdrecv);
        QCOMPARE(s.orderStatus(Id), QStringLiteral("R"));
        QCOMPARE(s.value(QStringLiteral("SELECT recvqty FROM orderline WHERE orderid = 'ABC0000001'")).toInt(), 10);

        s.prompter().expect(QStringLiteral("All items have been received, the order will now close"));
        s.click(form->ui().cmdbutton[MainButton::ReceiveOrder]);
        s.click(form->ui().cmdnavbutton[2]);
        QCOMPARE(s.orderStatus(Id2), QStringLiteral("R"));
        QVERIFY(s.header(0)->text().isEmpty());
    }
};

QTEST_MAIN(TestOrderLife)
#include "tst_orderlife.moc"
