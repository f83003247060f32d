#include "OrderDataFixture.h"
#include "orders/OrderDesk.h"
#include "orders/Receiving.h"

#include <QRegularExpression>
#include <QTest>

using namespace ordwell;

Q_DECLARE_METATYPE(ordwell::Receiving::Verdict)

namespace {
const QString Id = QStringLiteral("ABC1000000");

// An exported order: A1 10 ordered, B2 4 ordered, and a cancelled C3.
void exportedOrder(test::OrderDataFixture& f) {
    f.addOrder(Id, QStringLiteral("X"), Money::fromPence(2400));
    f.addLine(Id, 1, QStringLiteral("A1"), 10, Money::fromPence(200), QStringLiteral("X"));
    f.addLine(Id, 2, QStringLiteral("B2"), 4, Money::fromPence(100), QStringLiteral("X"));
    f.addLine(Id, 3, QStringLiteral("C3"), 0, Money::fromPence(500), QStringLiteral("C"), 0);
}
} // namespace

class TestReceiving : public test::StrictTest {
    Q_OBJECT

private slots:
    void initTestCase() { test::initTestEnvironment(); }

    void judgingTheReceivedBox_data() {
        QTest::addColumn<QString>("typed");
        QTest::addColumn<Receiving::Verdict>("verdict");
        QTest::addColumn<int>("quantity");
        using V = Receiving::Verdict;
        QTest::newRow("part") << "3" << V::Book << 3;
        QTest::newRow("all outstanding") << "10" << V::Book << 10;
        QTest::newRow("one too many") << "11" << V::Refuse << 0;
        QTest::newRow("zero passes over") << "0" << V::PassOver << 0;
        QTest::newRow("zero written otherwise") << "00" << V::Refuse << 0;
        QTest::newRow("negative") << "-2" << V::Refuse << 0;
        QTest::newRow("fraction") << "1.5" << V::Refuse << 0;
        QTest::newRow("exponent") << "1e1" << V::Refuse << 0;
        QTest::newRow("empty") << "" << V::Ignore << 0;
        QTest::newRow("letters") << "3a" << V::Ignore << 0;
    }
    void judgingTheReceivedBox() {
        QFETCH(QString, typed);
        QFETCH(Receiving::Verdict, verdict);
        QFETCH(int, quantity);
        const auto judged = Receiving::JudgeReceivedQuantity(typed, 10);
        QCOMPARE(judged.verdict, verdict);
        QCOMPARE(judged.quantity, quantity);
    }

    // The desk the order form works from, without the form: the chosen order's status comes
    // from the list, not from what a box shows, and the delivery's count says when the last
    // of the order has come.
    void deskFollowsTheListAndTheDelivery() {
        test::OrderDataFixture f;
        exportedOrder(f);
        OrderDesk desk;
        QVERIFY(desk.chosenStatus().isEmpty());
        QVERIFY(desk.openList(f.vendorDb(), OrderListKey::XS));
        QVERIFY(desk.browsing());
        QCOMPARE(desk.chosenStatus(), QStringLiteral("X"));
        desk.closeList();
        QVERIFY(desk.chosenStatus().isEmpty());

        QVERIFY(Receiving::StartReceiving(f.vendorDb(), Id));
        QCOMPARE(desk.countReceipt(f.vendorDb(), Id).value(), false);
        QVERIFY(!desk.booked(10));
        QVERIFY(desk.booked(4)); // 14 ordered on the live lines

        // Taking up and finishing: order and live lines move together, the finished order
        // keeping the total shown; finishing an order that is not live leaves it alone.
        QVERIFY(OrderDesk::finish(f.vendorDb(), Id, Money::fromPence(999), QDate(2026, 3, 1)));
        QCOMPARE(f.orderStatus(Id), QStringLiteral("S"));
        QVERIFY(OrderDesk::takeUp(f.vendorDb(), Id, QDate(2026, 3, 1)));
        QCOMPARE(f.lineStatuses(Id), QStringLiteral("LLC"));
        QVERIFY(OrderDesk::finish(f.vendorDb(), Id, Money::fromPence(1234), QDate(2026, 3, 1)));
        QCOMPARE(f.orderStatus(Id) + f.lineStatuses(Id), QStringLiteral("EEEC"));
        QCOMPARE(f.value(QStringLiteral("orderhead"), QStringLiteral("totalval"), QStringLiteral("orderid"), Id)
                     .toLongLong(),
                 Money::fromPence(1234).tenThousandths());

        // Order and lines move together or not at all: with the lines' table gone, taking the
        // order up fails and leaves the order "E".
        f.exec(QStringLiteral("DROP TABLE orderline"));
        QTest::ignoreMessage(QtWarningMsg, QRegularExpression(QStringLiteral("UPDATE orderline")));
        QVERIFY(!OrderDesk::takeUp(f.vendorDb(), Id, QDate(2026, 3, 1)));
        QCOMPARE(f.orderStatus(Id), QStringLiteral("E"));
    }

    // Starting makes the order and its live lines "S" (cancelled lines count for nothing); then
    // 3 and 7 of 10 received on two days, one more than outstanding refused without a change;
    // Receive All books the rest, the order "R" with its date, the lines' own dates and the
    // cancelled line untouched. Taken up again while part received, the lines stay as they are.
    void receivingInPartsThenAll() {
        test::OrderDataFixture f;
        exportedOrder(f);
        QVERIFY(Receiving::StartReceiving(f.vendorDb(), Id));
        QCOMPARE(f.orderStatus(Id) + f.lineStatuses(Id), QStringLiteral("SSSC"));
        const auto totals = Receiving::CountReceipt(f.vendorDb(), Id).value();
        QCOMPARE(totals.ordered, 14);
        QCOMPARE(totals.received, 0);
        QVERIFY(!totals.complete());

        auto first = Receiving::ReceiveLine(f.vendorDb(), Id, QStringLiteral("A1"), 3, QDate(2024, 5, 1));
        QVERIFY(first);
        QCOMPARE(first.value().outstanding(), 7);
        QCOMPARE(first.value().status, QStringLiteral("S"));
        QVERIFY(!Receiving::ReceiveLine(f.vendorDb(), Id, QStringLiteral("A1"), 8));
        QCOMPARE(f.lineValue(Id, 1, QStringLiteral("recvqty")).toInt(), 3);
        QVERIFY(!Receiving::ReceiveLine(f.vendorDb(), Id, QStringLiteral("C3"), 1));
        auto second = Receiving::ReceiveLine(f.vendorDb(), Id, QStringLiteral("A1"), 7, QDate(2024, 5, 2));
        QVERIFY(second);
        QCOMPARE(second.value().outstanding(), 0);
        QCOMPARE(second.value().status, QStringLiteral("R"));
        QCOMPARE(second.value().line, 1);
        QCOMPARE(f.orderStatus(Id) + f.lineStatuses(Id), QStringLiteral("SRSC"));
        QCOMPARE(Receiving::CountReceipt(f.vendorDb(), Id).value().received, 10);
        QVERIFY(Receiving::StartReceiving(f.vendorDb(), Id));
        QCOMPARE(f.lineStatuses(Id), QStringLiteral("RSC"));

        QVERIFY(Receiving::CompleteReceipt(f.vendorDb(), Id, QDate(2024, 6, 1)));
        QCOMPARE(f.orderStatus(Id) + f.lineStatuses(Id), QStringLiteral("RRRC"));
        QCOMPARE(f.value("orderhead", "recvdate", "orderid", Id).toString(), QStringLiteral("2024-06-01"));
        QCOMPARE(f.lineValue(Id, 2, QStringLiteral("recvqty")).toInt(), 4);
        QCOMPARE(f.lineValue(Id, 3, QStringLiteral("recvqty")).toInt(), 0);
        QCOMPARE(f.lineValue(Id, 1, QStringLiteral("recvdate")).toString(), QStringLiteral("2024-05-02"));
        QCOMPARE(f.lineValue(Id, 2, QStringLiteral("recvdate")).toString(), QStringLiteral("1980-07-04"));
    }
};

QTEST_MAIN(TestReceiving)
#include "tst_receiving.moc"
