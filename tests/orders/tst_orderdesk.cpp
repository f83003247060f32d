// The order desk's steps without the form, from reading a code to receiving the delivery: each
// step does its work in the database and says which screen follows; a step that fails says what
// could not be done and leaves the data alone.
#include "OrderDataFixture.h"
#include "orders/OrderDesk.h"
#include "orders/Receiving.h"

#include <QDir>
#include <QFile>
#include <QRegularExpression>
#include <QTest>
#include <tuple>

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

class TestOrderDesk : public test::StrictTest {
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
        QCOMPARE(desk.chosenState(), OrderState::None);
        QVERIFY(desk.openList(f.vendorDb(), OrderListKey::XS));
        QVERIFY(desk.browsing());
        QCOMPARE(desk.chosenState(), OrderState::Exported);
        desk.closeList();
        QCOMPARE(desk.chosenState(), OrderState::None);
        // Shown, the exported order is received or exported as it is; printing lists orders.
        desk.shown = Id;
        QCOMPARE(*desk.shownState(f.vendorDb()), OrderState::Exported);
        const std::pair<DeskMode, bool> taken[] = {
            {DeskMode::Receive, true}, {DeskMode::Export, true}, {DeskMode::Print, false}, {DeskMode::Load, false}};
        for (const auto& [mode, accepted] : taken) {
            desk.mode = mode;
            QCOMPARE(desk.accepts(*desk.shownState(f.vendorDb())), accepted);
        }

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

    // What one barcode rule makes of a code; empty: the rule does not apply.
    void ruleStripping() {
        const struct {
            const char* start;
            int first, last;
            const char* code;
            const char* result;
        } cases[] = {{"99", 2, 1, "9912345X", "12345"}, {"", 1, 0, "9912345X", ""}, // no prefix never matches
                     {"ab", 2, 0, "AB123", ""},                                     // the prefix is case-sensitive
                     {"99", 4, 0, "9912", ""},          {"99", 2, 2, "9912", ""},   // nothing would be left
                     {"5", 0, 0, "5000", "5000"}};
        for (const auto& c : cases) {
            const BarcodeRule rule{.codestart = QString::fromLatin1(c.start),
                                   .skipfirst = c.first,
                                   .skiplast = c.last,
                                   .status = BarcodeRules::Active};
            QCOMPARE(BarcodeResolver::strip(rule, QString::fromLatin1(c.code)).value_or(QString()),
                     QString::fromLatin1(c.result));
        }
    }

    // Codes as scanned: over an empty catalogue the rules are not tried, so an unknown item keeps
    // the code as scanned; then items in any case, through rules acting one after another on
    // what the last left (inactive ones never tried), by product barcode; a misread is never
    // offered as an unknown item; and the ways a code that finds nothing is dropped, refused
    // or kept.
    void readingCodes() {
        test::OrderDataFixture f;
        const auto addRule = [&](const char* start, int first, int last, const char* status) {
            f.exec(QStringLiteral("INSERT INTO barcodes (codestart, skipfirst, skiplast, status) VALUES (?, ?, ?, ?)"),
                   {QString::fromLatin1(start), first, last, QString::fromLatin1(status)});
        };
        for (const auto& [start, first, last, status] : {std::tuple("99", 2, 1, "A"), std::tuple("88", 1, 0, "I"),
                                                         std::tuple("X", 1, 0, "A"), std::tuple("Y", 1, 1, "A")})
            addRule(start, first, last, status);
        OrderDesk desk;
        QVERIFY(desk.loadRules(f.vendorDb()));
        QVERIFY(desk.haveRules);
        const QDate day(2026, 3, 1);
        QCOMPARE(desk.scan(f.vendorDb(), QStringLiteral("99zzzx"), true, day).code, QStringLiteral("99ZZZX"));

        f.addItem(QStringLiteral("A1"), QStringLiteral("Widget"), Money::fromPence(150), 6);
        f.addItem(QStringLiteral("777"), QStringLiteral("Chained"), Money::fromPence(300));
        f.exec(QStringLiteral("UPDATE items SET gtin = '05012345670003' WHERE code = 'A1'"));
        const std::pair<QString, QString> found[] = {{QStringLiteral("a1"), QStringLiteral("A1")},
                                                     {QStringLiteral("99A1X"), QStringLiteral("A1")},
                                                     {QStringLiteral("XY7770"), QStringLiteral("777")},
                                                     {QStringLiteral("5012345670003"), QStringLiteral("A1")}};
        for (const auto& [scanned, code] : found) {
            desk.currentItem.reset();
            const ScanStep step = desk.scan(f.vendorDb(), scanned, false, day);
            QCOMPARE(step.outcome, ScanOutcome::Item);
            QCOMPARE(desk.currentItem->code, code);
        }
        QCOMPARE(desk.scan(f.vendorDb(), QStringLiteral("99zzzx"), true, day).code, QStringLiteral("ZZZ"));
        const ScanStep misread = desk.scan(f.vendorDb(), QStringLiteral("5012345670004"), true, day);
        QCOMPARE(misread.outcome, ScanOutcome::Misread);
        QVERIFY2(misread.alert && misread.note.contains(QStringLiteral("check digit")), qPrintable(misread.note));

        const std::pair<QString, ScanOutcome> kept[] = {{QStringLiteral("ZZ9"), ScanOutcome::Unknown},
                                                        {QString(), ScanOutcome::Empty},
                                                        {QString(26, QLatin1Char('Z')), ScanOutcome::TooLong},
                                                        {QStringLiteral("Z-9"), ScanOutcome::BadCharacters}};
        for (const auto& [scanned, outcome] : kept)
            QCOMPARE(desk.scan(f.vendorDb(), scanned, true, day).outcome, outcome);
        const ScanStep dropped = desk.scan(f.vendorDb(), QStringLiteral("88777"), false, day);
        QCOMPARE(dropped.outcome, ScanOutcome::NothingFound);
        QVERIFY(dropped.alert);
        QCOMPARE(dropped.note, QStringLiteral("No item has the code 88777"));
    }

    // A quantity makes the current item's line or adds to it, the order's total following;
    // a line chosen from the grid takes a new quantity in its place, 0 cancelling it, and comes
    // back to life when entered again. The largest quantity and price keep every digit.
    void enteringQuantities() {
        test::OrderDataFixture f;
        f.addItem(QStringLiteral("A1"), QStringLiteral("Widget"), Money::fromPence(150), 6);
        f.addItem(QStringLiteral("BIG"), QStringLiteral("Large"),
                  *Money::parse(QStringLiteral("99999.99"), QLocale::c()));
        f.addOrder(Id, QStringLiteral("L"));
        OrderDesk desk;
        desk.shown = Id;
        QVERIFY(desk.openLines(f.vendorDb(), Id));
        const OrderHeaderFields header{{}, QStringLiteral("Pat"), {}, {}, {}, {}};
        const QDate day(2026, 3, 1);
        const auto enter = [&](const QString& code, qint64 qty) {
            if (!desk.editingLine)
                desk.scan(f.vendorDb(), code, false, day);
            const auto change = desk.enterQuantity(qty, desk.currentItem->price, desk.currentItem->packQty,
                                                   desk.currentItem->descr, header);
            return change && change->has_value() ? **change : LineChange{};
        };
        QVERIFY(enter(QStringLiteral("A1"), 0).appended); // a line of none
        QCOMPARE(enter(QStringLiteral("A1"), 3).line.qty, 3);
        LineChange change = enter(QStringLiteral("A1"), 3);
        QCOMPARE(change.line.qty, 6);
        QCOMPARE(change.total, Money::fromPence(900));
        QCOMPARE(f.value("orderhead", "name", "orderid", Id).toString(), QStringLiteral("Pat"));
        desk.editingLine = true;
        change = enter(QStringLiteral("A1"), 2);
        QCOMPARE(change.total, Money::fromPence(300));
        desk.editingLine = true;
        change = enter(QStringLiteral("A1"), 0);
        QCOMPARE(change.line.status + QString::number(change.line.qty), QStringLiteral("C0"));
        QCOMPARE(change.total, Money());
        QCOMPARE(enter(QStringLiteral("A1"), 1).line.status, QStringLiteral("L"));

        change = enter(QStringLiteral("BIG"), 99999);
        QCOMPARE(change.line.lineval.toPlainString(), QStringLiteral("9999899000.01"));
        QCOMPARE(change.total.toPlainString(), QStringLiteral("9999899001.51"));
        QCOMPARE(f.value("orderhead", "totalval", "orderid", Id).toLongLong(), change.total.tenThousandths());
        QCOMPARE(f.lineValue(Id, 2, QStringLiteral("price")).toLongLong(), 999999900LL);
        desk.currentItem.reset();
        QVERIFY(!desk.enterQuantity(1, Money(), 1, QString(), header)->has_value());
    }
};

QTEST_MAIN(TestOrderDesk)
#include "tst_orderdesk.moc"
