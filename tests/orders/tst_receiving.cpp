// The order desk's steps without the form, receiving above all: each step does its work in the
// database and says which screen follows; a step that fails says what could not be done and
// leaves the data alone.
#include "OrderDataFixture.h"
#include "orders/OrderDesk.h"
#include "orders/Receiving.h"

#include <QDir>
#include <QFile>
#include <QRegularExpression>
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

QString today() {
    return QDate::currentDate().toString(Qt::ISODate);
}
} // namespace

class TestReceiving : public test::StrictTest {
    Q_OBJECT

private slots:
    void initTestCase() { test::initTestEnvironment(); }

    // What a quantity typed against 10 outstanding means.
    void judgingTheReceivedBox() {
        using V = Receiving::Verdict;
        const struct {
            const char* typed;
            V verdict;
            int quantity;
        } cases[] = {{"3", V::Book, 3},    {"10", V::Book, 10},  {"11", V::Refuse, 0},  {"0", V::PassOver, 0},
                     {"00", V::Refuse, 0}, {"-2", V::Refuse, 0}, {"1.5", V::Refuse, 0}, {"1e1", V::Refuse, 0},
                     {"", V::Ignore, 0},   {"3a", V::Ignore, 0}};
        for (const auto& c : cases) {
            const auto judged = Receiving::JudgeReceivedQuantity(QString::fromLatin1(c.typed), 10);
            QVERIFY2(judged.verdict == c.verdict && judged.quantity == c.quantity, c.typed);
        }
    }

    // The chosen order's status comes from the list, not from what a box shows. Taking up and
    // finishing move the order and its live lines together, the finished order keeping the
    // total shown; finishing an order that is not live leaves it alone; and when the lines
    // cannot move, the order does not either.
    void listTakeUpAndFinish() {
        test::OrderDataFixture f;
        exportedOrder(f);
        OrderDesk desk;
        QVERIFY(desk.chosenStatus().isEmpty());
        QVERIFY(desk.openList(f.vendorDb(), OrderListKey::XS));
        QVERIFY(desk.browsing());
        QCOMPARE(desk.chosenStatus(), QStringLiteral("X"));
        desk.closeList();
        QVERIFY(desk.chosenStatus().isEmpty());

        QVERIFY(OrderDesk::finish(f.vendorDb(), Id, Money::fromPence(999), QDate(2026, 3, 1)));
        QCOMPARE(f.orderStatus(Id), QStringLiteral("X"));
        QVERIFY(OrderDesk::takeUp(f.vendorDb(), Id, QDate(2026, 3, 1)));
        QCOMPARE(f.lineStatuses(Id), QStringLiteral("LLC"));
        QVERIFY(OrderDesk::finish(f.vendorDb(), Id, Money::fromPence(1234), QDate(2026, 3, 1)));
        QCOMPARE(f.orderStatus(Id) + f.lineStatuses(Id), QStringLiteral("EEEC"));
        QCOMPARE(f.value(QStringLiteral("orderhead"), QStringLiteral("totalval"), QStringLiteral("orderid"), Id)
                     .toLongLong(),
                 Money::fromPence(1234).tenThousandths());

        f.exec(QStringLiteral("DROP TABLE orderline"));
        QTest::ignoreMessage(QtWarningMsg, QRegularExpression(QStringLiteral("UPDATE orderline")));
        QVERIFY(!OrderDesk::takeUp(f.vendorDb(), Id, QDate(2026, 3, 1)));
        QCOMPARE(f.orderStatus(Id), QStringLiteral("E"));
        QTest::ignoreMessage(QtWarningMsg, QRegularExpression(QStringLiteral("orderline")));
        const DeskStep refused = OrderDesk::cancel(f.vendorDb(), Id);
        QVERIFY(!refused.status);
        QVERIFY(refused.failed.startsWith(QStringLiteral("The order could not be cancelled")));
        QCOMPARE(f.orderStatus(Id), QStringLiteral("E"));
    }

    // A delivery typed line by line: starting makes the order and its live lines "S"; part of
    // a line, one more than outstanding refused, a line passed over, a cancelled line refused;
    // taken up again while part received, the lines stay as they are; the last item closes the
    // order "R" with today's date, and the form goes idle.
    void receivingStepByStep() {
        test::OrderDataFixture f;
        exportedOrder(f);
        OrderDesk desk;
        const DeskStep started = desk.startReceiving(f.vendorDb(), Id);
        QVERIFY(started.status);
        QCOMPARE(started.next, DeskScreen::Receiving);
        QCOMPARE(f.orderStatus(Id) + f.lineStatuses(Id), QStringLiteral("SSSC"));
        QCOMPARE(desk.orderedTotal, 14);

        ReceiptStep step = desk.receive(f.vendorDb(), Id, QStringLiteral("A1"), QStringLiteral("3"), 10);
        QCOMPARE(step.verdict, Receiving::Verdict::Book);
        QCOMPARE(step.next, DeskScreen::Receiving);
        QCOMPARE(step.line->outstanding(), 7);
        QCOMPARE(step.line->status, QStringLiteral("S"));
        QCOMPARE(f.lineValue(Id, 1, QStringLiteral("recvdate")).toString(), today());
        for (const QString& typed : {QStringLiteral("8"), QStringLiteral("-1"), QStringLiteral("0")}) {
            step = desk.receive(f.vendorDb(), Id, QStringLiteral("A1"), typed, 7);
            QCOMPARE(step.next, DeskScreen::Receiving);
            QVERIFY(!step.line);
        }
        QCOMPARE(step.verdict, Receiving::Verdict::PassOver);
        QCOMPARE(f.lineValue(Id, 1, QStringLiteral("recvqty")).toInt(), 3);
        // A grid out of date: the database refuses more than is outstanding, and says so.
        step = desk.receive(f.vendorDb(), Id, QStringLiteral("A1"), QStringLiteral("12"), 12);
        QCOMPARE(step.failed, QStringLiteral("The receipt could not be stored."));
        QVERIFY(!desk.receive(f.vendorDb(), Id, QStringLiteral("C3"), QStringLiteral("1"), 1).status);
        QCOMPARE(f.lineValue(Id, 1, QStringLiteral("recvqty")).toInt(), 3);

        step = desk.receive(f.vendorDb(), Id, QStringLiteral("A1"), QStringLiteral("7"), 7);
        QCOMPARE(step.line->status, QStringLiteral("R"));
        QVERIFY(Receiving::StartReceiving(f.vendorDb(), Id));
        QCOMPARE(f.lineStatuses(Id), QStringLiteral("RSC"));
        step = desk.receive(f.vendorDb(), Id, QStringLiteral("B2"), QStringLiteral("4"), 4);
        QVERIFY(step.status);
        QCOMPARE(step.next, DeskScreen::Idle);
        QCOMPARE(f.orderStatus(Id) + f.lineStatuses(Id), QStringLiteral("RRRC"));
        QCOMPARE(f.value("orderhead", "recvdate", "orderid", Id).toString(), today());
    }

    // An order whose delivery had all come closes as soon as receiving starts; "receive all"
    // books the rest, the lines' own dates and the cancelled line untouched. (Cancelling is the
    // order form's own test, through this desk.)
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
        f.addLine(other, 2, QStringLiteral("C3"), 0, Money::fromPence(500), QStringLiteral("C"), 0);
        const DeskStep all = OrderDesk::receiveAll(f.vendorDb(), other);
        QCOMPARE(all.next, DeskScreen::Idle);
        QCOMPARE(f.orderStatus(other) + f.lineStatuses(other), QStringLiteral("RRC"));
        QCOMPARE(f.lineValue(other, 1, QStringLiteral("recvqty")).toInt(), 5);
        QCOMPARE(f.lineValue(other, 2, QStringLiteral("recvqty")).toInt(), 0);
        QCOMPARE(f.lineValue(other, 1, QStringLiteral("recvdate")).toString(), QStringLiteral("1980-07-04"));
    }

    // A new order is stored live with its lines open and its header next; printed, it is
    // shown for its next step; exported, the file is on the desktop, and a second time the
    // file stands in the way and nothing changes.
    void startPrintAndExport() {
        test::OrderDataFixture f;
        OrderDesk desk;
        const DeskStep started = desk.startNew(f.vendorDb(), Id, QDate(2026, 3, 1));
        QCOMPARE(started.next, DeskScreen::NewHeader);
        QVERIFY(desk.linesOpen);
        QCOMPARE(f.orderStatus(Id), QStringLiteral("L"));
        QVERIFY(!desk.startNew(f.vendorDb(), Id, QDate(2026, 3, 1)).status); // the number is taken
        f.addLine(Id, 1, QStringLiteral("A1"), 2, Money::fromPence(150), QStringLiteral("E"));
        f.exec(QStringLiteral("UPDATE orderhead SET status = 'E'"));
        QCOMPARE(OrderDesk::printed(f.vendorDb(), Id).next, DeskScreen::ShownForAction);
        QCOMPARE(f.orderStatus(Id) + f.lineStatuses(Id), QStringLiteral("PP"));
        const auto exported = [&] {
            return OrderDesk::exportToDesktop(f.systemDb(), f.vendorDb(), QStringLiteral("Acme Supplies"),
                                              f.desktopDir(), Id);
        };
        QCOMPARE(exported().outcome, OrderExport::Outcome::Exported);
        QCOMPARE(f.orderStatus(Id) + f.lineStatuses(Id), QStringLiteral("XX"));
        QVERIFY(QFile::exists(QDir(f.desktopDir()).filePath(OrderExport::FileName(Id))));
        QCOMPARE(exported().outcome, OrderExport::Outcome::FileExists);
    }

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
        const QDate day(2026, 3, 1);
        for (const QString& scanned : {QStringLiteral("A1"), QStringLiteral("99A1X")}) {
            desk.currentItem.reset();
            const ScanStep step = desk.scan(f.vendorDb(), scanned, false, day);
            QCOMPARE(step.outcome, ScanOutcome::Item);
            QCOMPARE(step.code, QStringLiteral("A1"));
            QCOMPARE(desk.currentItem->descr, QStringLiteral("Widget"));
        }
        const std::pair<QString, ScanOutcome> kept[] = {{QStringLiteral("ZZ9"), ScanOutcome::Unknown},
                                                        {QString(), ScanOutcome::Empty},
                                                        {QString(26, QLatin1Char('Z')), ScanOutcome::TooLong},
                                                        {QStringLiteral("Z-9"), ScanOutcome::BadCharacters}};
        for (const auto& [scanned, outcome] : kept)
            QCOMPARE(desk.scan(f.vendorDb(), scanned, true, day).outcome, outcome);
        const ScanStep dropped = desk.scan(f.vendorDb(), QStringLiteral("ZZ9"), false, day);
        QCOMPARE(dropped.outcome, ScanOutcome::NothingFound);
        QVERIFY(dropped.alert);
        QCOMPARE(dropped.note, QStringLiteral("No item has the code ZZ9"));

        desk.shown = Id;
        QVERIFY(desk.openLines(f.vendorDb(), Id));
        const OrderHeaderFields header{{}, QStringLiteral("Pat"), {}, {}, {}, {}};
        desk.scan(f.vendorDb(), QStringLiteral("A1"), false, day);
        auto change = desk.enterQuantity(3, Money::fromPence(150), 6, QStringLiteral("Widget"), header);
        QVERIFY(change && change->has_value() && (*change)->appended);
        QCOMPARE((*change)->total, Money::fromPence(450));
        change = desk.enterQuantity(3, Money::fromPence(150), 6, QStringLiteral("Widget"), header);
        QCOMPARE((*change)->line.qty, 6);
        QCOMPARE((*change)->total, Money::fromPence(900));
        QCOMPARE(f.lineValue(Id, 1, QStringLiteral("qty")).toInt(), 6);
        desk.currentItem.reset();
        QVERIFY(!desk.enterQuantity(1, Money(), 1, QString(), header)->has_value());
    }
};

QTEST_MAIN(TestReceiving)
#include "tst_receiving.moc"
