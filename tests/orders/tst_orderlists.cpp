#include "OrderDataFixture.h"
#include "orders/OrderCancellation.h"
#include "orders/OrderList.h"

#include <QTest>

using namespace ordwell;

namespace {

// Walks a list from first to last and returns "number:status" for each order, checking on
// the way that position, mask and text agree with the walk.
QStringList walk(OrderList& list) {
    QStringList seen;
    if (list.isEmpty())
        return seen;
    if (!list.first())
        return {QStringLiteral("first failed")};
    for (int i = 1; i <= list.count(); ++i) {
        if (list.position() != i)
            return {QStringLiteral("position %1 at step %2").arg(list.position()).arg(i)};
        seen << list.current().orderId + QLatin1Char(':') + list.current().status;
        if (i < list.count() && !list.next())
            return {QStringLiteral("next failed")};
    }
    return seen;
}

const QString A = QStringLiteral("ABC1000000");
const QString B = QStringLiteral("ABC1000001");

} // namespace

class TestOrderLists : public test::StrictTest {
    Q_OBJECT

private slots:
    void initTestCase() { test::initTestEnvironment(); }

    // Each mode's list holds its statuses only, grouped by letter in alphabetical order and
    // never "C" or "R"; backwards gives the same orders in reverse.
    void listsHoldTheirStatusesGroupedByLetter_data() {
        QTest::addColumn<QString>("key");
        QTest::addColumn<QStringList>("expected");
        QTest::newRow("load") << "ALL" << QStringList{"ABC1000002:E", "ABC1000007:E", "ABC1000001:L",
                                                      "ABC1000003:P", "ABC1000005:S", "ABC1000004:X"};
        QTest::newRow("print") << "EP" << QStringList{"ABC1000002:E", "ABC1000007:E", "ABC1000003:P"};
        QTest::newRow("export") << "PX" << QStringList{"ABC1000003:P", "ABC1000004:X"};
        QTest::newRow("receive") << "XS" << QStringList{"ABC1000005:S", "ABC1000004:X"};
    }
    void listsHoldTheirStatusesGroupedByLetter() {
        QFETCH(QString, key);
        QFETCH(QStringList, expected);
        test::OrderDataFixture f;
        const char* statuses[] = {"C", "L", "E", "P", "X", "S", "R", "E"};
        for (int i = 0; i < 8; ++i)
            f.addOrder(QStringLiteral("ABC100000%1").arg(i), QString::fromLatin1(statuses[i]));
        OrderList list(f.vendorDb(), *OrderNavigation::keyFromName(key));
        QVERIFY(list.open());
        QCOMPARE(list.count(), expected.size());
        QCOMPARE(walk(list), expected);

        QStringList backwards;
        QVERIFY(list.last());
        for (int i = list.count(); i >= 1; --i) {
            QCOMPARE(list.position(), i);
            backwards.prepend(list.current().orderId + QLatin1Char(':') + list.current().status);
            QVERIFY(list.previous());
        }
        QCOMPARE(backwards, expected);
        QCOMPARE(list.position(), 1); // "<" at the first order stays there
    }

    // The header shows the order as stored, total with two decimals and grouping; browsing
    // leaves the database alone.
    void currentOrderIsReadNotWritten() {
        test::OrderDataFixture f;
        f.addOrder(A, QStringLiteral("E"), Money::fromPence(123450), QStringLiteral("n1"));
        OrderList list(f.vendorDb(), OrderListKey::All);
        QVERIFY(list.open());
        const auto texts = OrderCancellation::HeaderTexts(list.current(), list.current().status);
        QCOMPARE(QStringList(texts.begin(), texts.end()).join(u'|'),
                 QStringLiteral("ABC1000000|11/03/2020|Ann|REF1|n1||E|1,234.50"));
        QCOMPARE(f.orderStatus(A), QStringLiteral("E"));
    }

    // Cancelling: order "C" with total 0.00; lines already "C" stay, others become "C"; the
    // quantities and a printed order's print date are kept.
    void cancellingAnOrder() {
        test::OrderDataFixture f;
        f.addOrder(A, QStringLiteral("P"), Money::fromPence(900));
        f.exec(QStringLiteral("UPDATE orderhead SET printdate = '2021-05-01' WHERE orderid = 'ABC1000000'"));
        f.addLine(A, 1, QStringLiteral("A1"), 3, Money::fromPence(150), QStringLiteral("P"));
        f.addLine(A, 2, QStringLiteral("A2"), 0, Money::fromPence(200), QStringLiteral("C"));
        f.addLine(A, 3, QStringLiteral("A3"), 2, Money::fromPence(225), QStringLiteral("P"));
        f.addOrder(B, QStringLiteral("P"), Money::fromPence(500));
        f.addLine(B, 1, QStringLiteral("A1"), 1, Money::fromPence(500), QStringLiteral("P"));

        QVERIFY(OrderCancellation::CancelOrder(f.vendorDb(), A));
        QCOMPARE(f.orderStatus(A) + f.lineStatuses(A), QStringLiteral("CCCC"));
        QCOMPARE(f.value("orderhead", "totalval", "orderid", A).toLongLong(), 0);
        QCOMPARE(f.value("orderhead", "printdate", "orderid", A).toString(), QStringLiteral("2021-05-01"));
        QCOMPARE(f.lineValue(A, 3, QStringLiteral("qty")).toInt(), 2);
        QCOMPARE(f.lineValue(A, 3, QStringLiteral("lineval")).toLongLong(), 45000);
        // Another order is untouched.
        QCOMPARE(f.orderStatus(B) + f.lineStatuses(B), QStringLiteral("PP"));

        QVERIFY(!OrderCancellation::CancelOrder(f.vendorDb(), QStringLiteral("ABC9999999")));
    }

    // Recovery finds the first live order; its header shows "L - Live" and the stored total.
    void findingTheLiveOrder() {
        test::OrderDataFixture f;
        QVERIFY(OrderCancellation::FindLiveOrder(f.vendorDb()).value() == std::nullopt);
        f.addOrder(A, QStringLiteral("E"));
        f.addOrder(QStringLiteral("ABC1000002"), QStringLiteral("L"), Money::fromPence(450));
        f.addOrder(B, QStringLiteral("L"), Money::fromPence(100));
        auto live = OrderCancellation::FindLiveOrder(f.vendorDb());
        QVERIFY(live && live.value());
        const auto texts = OrderCancellation::RecoveredHeaderTexts(*live.value());
        QCOMPARE(texts[0] + texts[6] + texts[7], QStringLiteral("ABC1000001L - Live1.00"));
        QCOMPARE(f.orderStatus(B), QStringLiteral("L"));
    }
};

QTEST_MAIN(TestOrderLists)
#include "tst_orderlists.moc"
