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

void addOrder(OrderSession& s, const QString& id, const QString& status, const QString& total = QStringLiteral("0"),
              const QString& printDate = QString()) {
    const Status done =
        Sql::run(s.db(),
                 QStringLiteral("INSERT INTO orderhead (orderid, orderdate, name, reference, status, totalval, "
                                "reprintcount, printdate) VALUES (?, '2020-03-11', 'Ann', 'R1', ?, ?, 0, ?)"),
                 {id, status, Money::parse(total)->tenThousandths(), Sql::textOrNull(printDate)});
    QVERIFY2(done, qPrintable(done.message()));
}

void addLine(OrderSession& s, const QString& id, int line, const QString& code, int qty, const QString& status,
             int received = 0) {
    const Status done = Sql::run(
        s.db(),
        QStringLiteral("INSERT INTO orderline (orderid, line, code, linedate, status, qty, price, lineval, recvqty, "
                       "recvdate) VALUES (?, ?, ?, '2020-03-11', ?, ?, 15000, ?, ?, '1980-07-04')"),
        {id, line, code, status, qty, qint64(qty) * 15000, received});
    QVERIFY2(done, qPrintable(done.message()));
}

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
        addOrder(s, QStringLiteral("ABC0000001"), OrderStatus::Entered);
        addOrder(s, QStringLiteral("ABC0000002"), OrderStatus::Cancelled);
        addOrder(s, QStringLiteral("ABC0000003"), OrderStatus::Received);
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

        addOrder(s, QStringLiteral("ABC0000004"), OrderStatus::Printed);
        addOrder(s, QStringLiteral("ABC0000005"), OrderStatus::Exported);
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
        QCOMPARE(s.orderStatus(QStringLiteral("ABC0000001")), OrderStatus::Entered);
        s.click(ui.cmdcancelld);
    }

    void emptyListsSayNoOrders_data() {
        QTest::addColumn<QString>("menu");
        QTest::addColumn<QString>("text");
        QTest::newRow("load") << "mnuLdOrd"
                              << "There are no orders to load, please create a new order";
        QTest::newRow("print") << "mnuprtord"
                               << "There are no orders to load, please select a different option";
        QTest::newRow("receive") << "mnuRcvOrd"
                                 << "There are no orders to load, please select a different option";
    }
    void emptyListsSayNoOrders() {
        QFETCH(QString, menu);
        QFETCH(QString, text);
        OrderSession s;
        addOrder(s, QStringLiteral("ABC0000001"), OrderStatus::Cancelled);
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
        addOrder(s, QStringLiteral("ABC0000001"), OrderStatus::Entered, QStringLiteral("6.00"));
        addLine(s, QStringLiteral("ABC0000001"), 1, QStringLiteral("A1"), 2, OrderStatus::Entered);
        addLine(s, QStringLiteral("ABC0000001"), 2, QStringLiteral("A2"), 2, OrderStatus::Cancelled);
        OrderForm* form = s.open(QStringLiteral("mnuLdOrd"));
        s.click(form->ui().cmdnavbutton[2]);
        QCOMPARE(s.orderStatus(QStringLiteral("ABC0000001")), OrderStatus::Live);
        QCOMPARE(s.lineStatuses(QStringLiteral("ABC0000001")), QStringLiteral("LC"));
        QCOMPARE(s.header(6)->text(), QStringLiteral("L - LIVE"));
        QCOMPARE(form->ui().lblinfo->text(), QStringLiteral("Continue entering order details"));
        QCOMPARE(QApplication::focusWidget(), s.entry(0));

        // No keeps entry going in the code box; Yes cancels.
        s.prompter().expect(QStringLiteral("Are you sure you want to cancel this order"), MessageAnswer::No);
        s.click(form->ui().cmdcancelord);
        QCOMPARE(QApplication::focusWidget(), s.entry(0));
        QCOMPARE(s.orderStatus(QStringLiteral("ABC0000001")), OrderStatus::Live);
        s.prompter().expect(QStringLiteral("Are you sure you want to cancel this order"), MessageAnswer::Yes);
        s.click(form->ui().cmdcancelord);
        QCOMPARE(s.orderStatus(QStringLiteral("ABC0000001")), OrderStatus::Cancelled);
        QCOMPARE(s.orderTotal(QStringLiteral("ABC0000001")), Money());
        QCOMPARE(s.lineStatuses(QStringLiteral("ABC0000001")), QStringLiteral("CC"));
        QCOMPARE(s.lines(QStringLiteral("ABC0000001")).first().qty, 2);
        QVERIFY(s.header(0)->text().isEmpty());
    }

    // A printed order taken up keeps its print date when cancelled.
    void cancelPrintedOrder() {
        OrderSession s;
        addOrder(s, QStringLiteral("ABC0000001"), OrderStatus::Printed, QStringLiteral("3.00"),
                 QStringLiteral("2021-01-02"));
        OrderForm* form = s.open(QStringLiteral("mnuLdOrd"));
        s.click(form->ui().cmdnavbutton[2]);
        QCOMPARE(s.header(6)->text(), QStringLiteral("P - PRINTED"));
        QCOMPARE(form->ui().lblinfo->text(), QStringLiteral("Print or export this order"));
        QVERIFY(form->ui().cmdcancelord->isVisible() && form->ui().cmdcancelord->isEnabled());
        s.prompter().expect(QStringLiteral("Are you sure you want to cancel this order"), MessageAnswer::Yes);
        s.click(form->ui().cmdcancelord);
        QCOMPARE(s.orderStatus(QStringLiteral("ABC0000001")), OrderStatus::Cancelled);
        QCOMPARE(s.value(QStringLiteral("SELECT printdate FROM orderhead")).toString(), QStringLiteral("2021-01-02"));
    }

    // "&Receive Order" with a shown "X" order asks; No changes nothing. "&Print Order" with
    // a shown "S" order asks nothing and goes to the print list.
    void directQuestions() {
        OrderSession s;
        addOrder(s, QStringLiteral("ABC0000001"), OrderStatus::Exported);
        addLine(s, QStringLiteral("ABC0000001"), 1, QStringLiteral("A1"), 4, OrderStatus::Exported);
        OrderForm* form = s.open(QStringLiteral("mnuLdOrd"));
        s.click(form->ui().cmdnavbutton[2]);
        QCOMPARE(s.header(6)->text(), QStringLiteral("X - EXPORTED"));
        s.prompter().expect(QStringLiteral("Are you sure you want to receive this order?"), MessageAnswer::No);
        s.click(form->ui().cmdbutton[MainButton::ReceiveOrder]);
        QCOMPARE(s.prompter().messages.last().title, QStringLiteral("Receive Order"));
        QCOMPARE(s.orderStatus(QStringLiteral("ABC0000001")), OrderStatus::Exported);
        QCOMPARE(s.header(6)->text(), QStringLiteral("X - EXPORTED"));

        s.prompter().expect(QStringLiteral("Are you sure you want to receive this order?"), MessageAnswer::Yes);
        s.click(form->ui().cmdbutton[MainButton::ReceiveOrder]);
        QCOMPARE(s.orderStatus(QStringLiteral("ABC0000001")), OrderStatus::PartReceived);
        QCOMPARE(s.lineStatuses(QStringLiteral("ABC0000001")), QStringLiteral("S"));

        addOrder(s, QStringLiteral("ABC0000002"), OrderStatus::Entered);
        s.click(form->ui().cmdbutton[MainButton::PrintOrder]);
        QCOMPARE(form->ui().lblinfo->text(), QStringLiteral("Please Select an order to print"));
        QCOMPARE(s.header(0)->text(), QStringLiteral("ABC0000002"));
        QCOMPARE(s.orderStatus(QStringLiteral("ABC0000001")), OrderStatus::PartReceived);
        s.click(form->ui().cmdcancelld);
    }

    // Printing through the vendor's order form, stamped with today's date (the reprint rule is
    // the printing core's test), and a missing report file that leaves the order as it was.
    void printing() {
        OrderSession s;
        QVERIFY(ShippedReports::installMissing(s.ctx().dataDir()).isEmpty());
        Sql::run(s.db(), QStringLiteral("UPDATE vendor SET ordform = ?"),
                 {s.ctx().dataFile(QStringLiteral("nothere.rpt"))});
        addOrder(s, QStringLiteral("ABC0000001"), OrderStatus::Entered);
        addLine(s, QStringLiteral("ABC0000001"), 1, QStringLiteral("A1"), 4, OrderStatus::Entered);
        addLine(s, QStringLiteral("ABC0000001"), 2, QStringLiteral("A2"), 1, OrderStatus::Cancelled);
        OrderForm* form = s.open(QStringLiteral("mnuprtord"));
        s.click(form->ui().cmdnavbutton[2]);
        QCOMPARE(s.prompter().messages.size(), 1);
        QVERIFY(s.prompter().messages.last().text.contains(QStringLiteral("nothere.rpt")));
        QCOMPARE(s.prompter().messages.last().icon, MessageIcon::Critical);
        QCOMPARE(s.orderStatus(QStringLiteral("ABC0000001")), OrderStatus::Entered);
        QVERIFY(s.value(QStringLiteral("SELECT printdate FROM orderhead")).isNull());

        Sql::run(s.db(), QStringLiteral("UPDATE vendor SET ordform = ?"),
                 {s.ctx().dataFile(QStringLiteral("ordform.rpt"))});
        s.prompter().expect(QStringLiteral("Are you sure you want to print this order?"), MessageAnswer::Yes);
        s.click(form->ui().cmdbutton[MainButton::PrintOrder]);
        QCOMPARE(form->ui().lblinfo->text(), QStringLiteral("Order Printed"));
        QCOMPARE(s.header(6)->text(), QStringLiteral("P - PRINTED"));
        QCOMPARE(s.orderStatus(QStringLiteral("ABC0000001")), OrderStatus::Printed);
        QCOMPARE(s.lineStatuses(QStringLiteral("ABC0000001")), QStringLiteral("PC"));
        QCOMPARE(s.value(QStringLiteral("SELECT printdate FROM orderhead")).toDate(), QDate::currentDate());
        QVERIFY(form->ui().cmdcancelord->isVisible());
    }

    // Receiving line by line: 3 then 7 of 10, 11 refused, "0" passing over; the last line
    // received closes the order.
    void receivingLines() {
        OrderSession s;
        addOrder(s, QStringLiteral("ABC0000001"), OrderStatus::Exported);
        addLine(s, QStringLiteral("ABC0000001"), 1, QStringLiteral("A1"), 10, OrderStatus::Exported);
        addLine(s, QStringLiteral("ABC0000001"), 2, QStringLiteral("A2"), 5, OrderStatus::Cancelled);
        OrderForm* form = s.open(QStringLiteral("mnuRcvOrd"));
        const OrderFormControls& ui = form->ui();
        s.click(ui.cmdnavbutton[2]);
        QCOMPARE(ui.lblinfo->text(), QStringLiteral("Receiving order"));
        QVERIFY(ui.txtrcvqty->isVisible() && !ui.txtrcvqty->isEnabled());
        QCOMPARE(ui.lblitem[2]->text(), QStringLiteral("Rcv"));
        QCOMPARE(QApplication::focusWidget(), ui.cmdrecv);
        auto receive = [&](const QString& typed) {
            s.chooseRow(1);
            QCOMPARE(QApplication::focusWidget(), ui.txtrcvqty);
            QTest::keyClicks(ui.txtrcvqty, typed);
            QTest::keyClick(ui.txtrcvqty, Qt::Key_Return);
        };
        receive(QStringLiteral("11"));
        QVERIFY(ui.txtrcvqty->text().isEmpty());
        QCOMPARE(QApplication::focusWidget(), ui.txtrcvqty);
        QCOMPARE(s.value(QStringLiteral("SELECT recvqty FROM orderline WHERE line = 1")).toInt(), 0);
        receive(QStringLiteral("0"));
        QCOMPARE(QApplication::focusWidget(), ui.cmdrecv);
        receive(QStringLiteral("3"));
        QCOMPARE(s.value(QStringLiteral("SELECT recvqty FROM orderline WHERE line = 1")).toInt(), 3);
        QCOMPARE(s.lineStatuses(QStringLiteral("ABC0000001")), QStringLiteral("SC"));
        QCOMPARE(ui.flxitems->item(1, 3)->text(), QStringLiteral("7"));
        s.prompter().expect(QStringLiteral("All items have been received, the order will now close"));
        receive(QStringLiteral("7"));
        QCOMPARE(s.orderStatus(QStringLiteral("ABC0000001")), OrderStatus::Received);
        QCOMPARE(s.lineStatuses(QStringLiteral("ABC0000001")), QStringLiteral("RC"));
        QCOMPARE(s.value(QStringLiteral("SELECT recvqty FROM orderline WHERE line = 2")).toInt(), 0);
        QVERIFY(s.header(0)->text().isEmpty());
    }

    // A part-received order taken up from the load list, by keys: the grid shows what is still
    // to come, a line received in full cannot be chosen, and too many is refused, not stored.
    void receivingAnOrderTakenUpFromTheLoadList() {
        OrderSession s;
        addOrder(s, QStringLiteral("ABC0000001"), OrderStatus::PartReceived);
        addLine(s, QStringLiteral("ABC0000001"), 1, QStringLiteral("A1"), 10, OrderStatus::PartReceived, 4);
        addLine(s, QStringLiteral("ABC0000001"), 2, QStringLiteral("A2"), 2, OrderStatus::Received, 2);
        OrderForm* form = s.open(QStringLiteral("mnuLdOrd"));
        const OrderFormControls& ui = form->ui();
        QCOMPARE(QApplication::focusWidget(), ui.cmdnavbutton[2]);
        QTest::keyClick(ui.cmdnavbutton[2], Qt::Key_Return);
        QCOMPARE(s.header(6)->text(), QStringLiteral("S - PART RECEIVED"));
        QCOMPARE(ui.flxitems->item(1, 3)->text(), QStringLiteral("6"));
        QCOMPARE(ui.flxitems->item(2, 3)->text(), QStringLiteral("0"));
        const auto choose = [&ui](int row) {
            ui.flxitems->setFocus();
            ui.flxitems->setCurrentCell(row, 1);
            QTest::keyClick(ui.flxitems, Qt::Key_Return);
        };
        const auto receive = [&ui](const char* typed) {
            QTest::keyClicks(ui.txtrcvqty, QString::fromLatin1(typed));
            QTest::keyClick(ui.txtrcvqty, Qt::Key_Return);
        };
        choose(2);
        QCOMPARE(QApplication::focusWidget(), ui.cmdrecv);
        choose(1);
        QCOMPARE(QApplication::focusWidget(), ui.txtrcvqty);
        receive("7");
        QVERIFY(s.prompter().messages.isEmpty());
        QVERIFY(ui.txtrcvqty->text().isEmpty());
        QCOMPARE(QApplication::focusWidget(), ui.txtrcvqty);
        s.prompter().expect(QStringLiteral("All items have been received, the order will now close"));
        receive("6");
        QCOMPARE(s.orderStatus(QStringLiteral("ABC0000001")), OrderStatus::Received);
        QCOMPARE(s.value(QStringLiteral("SELECT recvqty FROM orderline WHERE line = 1")).toInt(), 10);
    }

    // "Receive All" on a part-received order closes it without a message; an order whose
    // lines have all come closes as soon as it is taken up.
    void receivingAll() {
        OrderSession s;
        addOrder(s, QStringLiteral("ABC0000001"), OrderStatus::PartReceived);
        addLine(s, QStringLiteral("ABC0000001"), 1, QStringLiteral("A1"), 10, OrderStatus::PartReceived, 4);
        addOrder(s, QStringLiteral("ABC0000002"), OrderStatus::PartReceived);
        addLine(s, QStringLiteral("ABC0000002"), 1, QStringLiteral("A1"), 2, OrderStatus::Received, 2);
        OrderForm* form = s.open(QStringLiteral("mnuRcvOrd"));
        selectOrder(s, QStringLiteral("ABC0000001"));
        s.prompter().expect(QStringLiteral("Do you want to receive all items in the order?"), MessageAnswer::Yes);
        s.click(form->ui().cmdrecv);
        QCOMPARE(s.orderStatus(QStringLiteral("ABC0000001")), OrderStatus::Received);
        QCOMPARE(s.value(QStringLiteral("SELECT recvqty FROM orderline WHERE orderid = 'ABC0000001'")).toInt(), 10);

        s.prompter().expect(QStringLiteral("All items have been received, the order will now close"));
        s.click(form->ui().cmdbutton[MainButton::ReceiveOrder]);
        s.click(form->ui().cmdnavbutton[2]);
        QCOMPARE(s.orderStatus(QStringLiteral("ABC0000002")), OrderStatus::Received);
        QVERIFY(s.header(0)->text().isEmpty());
    }
};

QTEST_MAIN(TestOrderLife)
#include "tst_orderlife.moc"
