// The order desk's steps without the form: each does its work in the database and says which
// screen follows; a step that fails says what could not be done and leaves the data alone.
#include "OrderDataFixture.h"
#include "orders/OrderDesk.h"

#include <QTest>

using namespace ordwell;

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

class TestOrderDesk : public test::StrictTest {
    Q_OBJECT

private slots:
    void initTestCase() { test::initTestEnvironment(); }

    // Codes as scanned: an item, a code a barcode rule strips, and the ways a code that finds
    // nothing is dropped, refused or kept; a quantity then makes the line or adds to it.
    void scanningAndEntering() {
        test::OrderDataFixture f;
        f.addItem(QStringLiteral("A1"), QStringLiteral("Widget"), Money::fromPence(150), 6);
        f.exec(
            QStringLiteral("INSERT INTO barcodes (codestart, skipfirst, skiplast, status) VALUES ('99', 2, 1, 'A')"));
        f.addOrder(Id, QStringLiteral("L"));
        OrderDesk desk;
        QVERIFY(desk.loadRules(f.vendorDb()));
        QVERIFY(desk.haveRules);
        const QDate today(2026, 3, 1);
        for (const QString& scanned : {QStringLiteral("A1"), QStringLiteral("99A1X")}) {
            desk.currentItem.reset();
            const ScanStep step = desk.scan(f.vendorDb(), scanned, false, today);
            QCOMPARE(step.outcome, ScanOutcome::Item);
            QCOMPARE(step.code, QStringLiteral("A1"));
            QCOMPARE(desk.currentItem->descr, QStringLiteral("Widget"));
        }
        const struct {
            QString scanned;
            bool keepUnknown;
            ScanOutcome outcome;
        } unknown[] = {
            {QStringLiteral("ZZ9"), false, ScanOutcome::NothingFound},
            {QStringLiteral("ZZ9"), true, ScanOutcome::Unknown},
            {QString(), true, ScanOutcome::Empty},
            {QString(26, QLatin1Char('Z')), true, ScanOutcome::TooLong},
            {QStringLiteral("Z-9"), true, ScanOutcome::BadCharacters},
        };
        for (const auto& u : unknown)
            QCOMPARE(desk.scan(f.vendorDb(), u.scanned, u.keepUnknown, today).outcome, u.outcome);
        const ScanStep dropped = desk.scan(f.vendorDb(), QStringLiteral("ZZ9"), false, today);
        QVERIFY(dropped.alert);
        QCOMPARE(dropped.note, QStringLiteral("No item has the code ZZ9"));

        QVERIFY(desk.openLines(f.vendorDb(), Id));
        OrderHeaderFields header{Id, QStringLiteral("Pat"), {}, {}, {}, {}};
        desk.scan(f.vendorDb(), QStringLiteral("A1"), false, today);
        auto change = desk.enterQuantity(3, Money::fromPence(150), 6, QStringLiteral("Widget"), header);
        QVERIFY(change && change->has_value() && (*change)->appended);
        QCOMPARE((*change)->total, Money::fromPence(450));
        header.total = (*change)->total; // as the form shows it
        change = desk.enterQuantity(3, Money::fromPence(150), 6, QStringLiteral("Widget"), header);
        QCOMPARE((*change)->line.qty, 6);
        QCOMPARE((*change)->total, Money::fromPence(900));
        QCOMPARE(f.lineValue(Id, 1, QStringLiteral("qty")).toInt(), 6);
        desk.currentItem.reset();
        QVERIFY(!desk.enterQuantity(1, Money(), 1, QString(), header)->has_value());
    }

    // A delivery typed line by line: part of a line, a refusal, a line passed over, and the
    // last item closing the order, after which the form goes idle.
    void receivingStepByStep() {
        test::OrderDataFixture f;
        exportedOrder(f);
        OrderDesk desk;
        const DeskStep started = desk.startReceiving(f.vendorDb(), Id);
        QVERIFY(started.status);
        QCOMPARE(started.next, DeskScreen::Receiving);
        QCOMPARE(f.orderStatus(Id) + f.lineStatuses(Id), QStringLiteral("SSSC"));

        ReceiptStep step = desk.receive(f.vendorDb(), Id, QStringLiteral("A1"), QStringLiteral("3"), 10);
        QCOMPARE(step.verdict, Receiving::Verdict::Book);
        QCOMPARE(step.next, DeskScreen::Receiving);
        QVERIFY(step.line);
        QCOMPARE(step.line->outstanding(), 7);

        for (const QString& typed : {QStringLiteral("8"), QStringLiteral("-1"), QStringLiteral("0")}) {
            step = desk.receive(f.vendorDb(), Id, QStringLiteral("A1"), typed, 7);
            QCOMPARE(step.next, DeskScreen::Receiving);
            QVERIFY(!step.line);
        }
        QCOMPARE(step.verdict, Receiving::Verdict::PassOver);
        QCOMPARE(f.lineValue(Id, 1, QStringLiteral("recvqty")).toInt(), 3);

        QCOMPARE(desk.receive(f.vendorDb(), Id, QStringLiteral("A1"), QStringLiteral("7"), 7).next,
                 DeskScreen::Receiving);
        step = desk.receive(f.vendorDb(), Id, QStringLiteral("B2"), QStringLiteral("4"), 4);
        QVERIFY(step.status);
        QCOMPARE(step.next, DeskScreen::Idle);
        QCOMPARE(f.orderStatus(Id) + f.lineStatuses(Id), QStringLiteral("RRRC"));
    }

    // An order whose delivery had all come closes as soon as receiving starts; "receive all"
    // closes one with items still outstanding.
    void closingAtOnce() {
        test::OrderDataFixture f;
        exportedOrder(f);
        f.exec(QStringLiteral("UPDATE orderline SET recvqty = qty"));
        OrderDesk desk;
        const DeskStep started = desk.startReceiving(f.vendorDb(), Id);
        QVERIFY(started.status);
        QCOMPARE(started.next, DeskScreen::Idle);
        QCOMPARE(f.orderStatus(Id), QStringLiteral("R"));

        const QString other = QStringLiteral("ABC1000001");
        f.addOrder(other, QStringLiteral("S"));
        f.addLine(other, 1, QStringLiteral("A1"), 5, Money::fromPence(200), QStringLiteral("S"), 2);
        const DeskStep all = OrderDesk::receiveAll(f.vendorDb(), other);
        QCOMPARE(all.next, DeskScreen::Idle);
        QCOMPARE(f.orderStatus(other) + f.lineStatuses(other), QStringLiteral("RR"));
        QCOMPARE(f.lineValue(other, 1, QStringLiteral("recvqty")).toInt(), 5);
    }

    // Cancelling moves the order and its lines; when it cannot, the step says so and the order
    // stays as it was. A booking the database refuses (a grid out of date) is told as such.
    void cancellingAndFailures() {
        test::OrderDataFixture f;
        exportedOrder(f);
        OrderDesk desk;
        QVERIFY(desk.startReceiving(f.vendorDb(), Id).status);
        const ReceiptStep stale = desk.receive(f.vendorDb(), Id, QStringLiteral("A1"), QStringLiteral("12"), 12);
        QVERIFY(!stale.status);
        QCOMPARE(stale.failed, QStringLiteral("The receipt could not be stored."));
        QCOMPARE(f.lineValue(Id, 1, QStringLiteral("recvqty")).toInt(), 0);

        f.exec(QStringLiteral("CREATE TRIGGER refuse BEFORE UPDATE ON orderhead BEGIN SELECT RAISE(ABORT, 'no'); END"));
        const DeskStep refused = OrderDesk::cancel(f.vendorDb(), Id);
        QVERIFY(!refused.status);
        QVERIFY(refused.failed.startsWith(QStringLiteral("The order could not be cancelled")));
        QCOMPARE(f.orderStatus(Id) + f.lineStatuses(Id), QStringLiteral("SSSC"));
        f.exec(QStringLiteral("DROP TRIGGER refuse"));

        // An order and its lines move together or not at all.
        f.exec(QStringLiteral("CREATE TRIGGER refuse BEFORE UPDATE ON orderline BEGIN SELECT RAISE(ABORT, 'no'); END"));
        QVERIFY(!OrderDesk::takeUp(f.vendorDb(), Id, QDate(2026, 3, 1)));
        QCOMPARE(f.orderStatus(Id) + f.lineStatuses(Id), QStringLiteral("SSSC"));
        f.exec(QStringLiteral("DROP TRIGGER refuse"));

        const DeskStep cancelled = OrderDesk::cancel(f.vendorDb(), Id);
        QVERIFY(cancelled.status);
        QCOMPARE(cancelled.next, DeskScreen::Idle);
        QCOMPARE(f.orderStatus(Id) + f.lineStatuses(Id), QStringLiteral("CCCC"));
    }
};

QTEST_MAIN(TestOrderDesk)
#include "tst_orderdesk.moc"
