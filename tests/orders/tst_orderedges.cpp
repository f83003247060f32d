// Values at the edges of what an order holds: the order counter at the width of the order
// number and at its 32 bits, the largest quantity and price, and header texts at their
// lengths in any script. The largest price of an unknown item is the order form's test.
#include "OrderFixture.h"
#include "common/Sql.h"
#include "orders/OrderRepository.h"
#include "support/EdgeText.h"

#include <QCheckBox>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>

using namespace ordwell;
using test::OrderSession;

class TestOrderEdges : public test::StrictTest {
    Q_OBJECT
private slots:
    void initTestCase() { test::initTestEnvironment(); }
    void counterAtItsEnds_data();
    void counterAtItsEnds();
    void formRefusesANumberPastTheColumn();
    void largestQuantityAndPrice();
    void headerTextsAtTheirLengths_data();
    void headerTextsAtTheirLengths();
};

void TestOrderEdges::counterAtItsEnds_data() {
    QTest::addColumn<qint64>("counter");
    QTest::addColumn<QString>("number"); // empty: refused
    QTest::addColumn<qint64>("after");
    QTest::newRow("first") << qint64(1000000) << "ABC1000000" << qint64(1000001);
    QTest::newRow("last that fits") << qint64(9999999) << "ABC9999999" << qint64(10000000);
    QTest::newRow("one digit too many") << qint64(10000000) << QString() << qint64(10000000);
    QTest::newRow("32-bit end") << qint64(2147483647) << QString() << qint64(2147483647);
}

void TestOrderEdges::counterAtItsEnds() {
    QFETCH(qint64, counter);
    QFETCH(QString, number);
    QFETCH(qint64, after);
    OrderSession s;
    QVERIFY(Sql::run(s.db(), QStringLiteral("UPDATE vendor SET nextord = ?"), {counter}));
    const Result<QString> given = OrderRepository(s.db()).NextOrderNumber(QStringLiteral("ABC"));
    if (number.isEmpty()) {
        QVERIFY(!given);
        QVERIFY2(given.message().contains(QStringLiteral("have run out")), qPrintable(given.message()));
    } else {
        QVERIFY2(given.isOk(), qPrintable(given.message()));
        QCOMPARE(given.value(), number);
    }
    // Never wrapped, never moved on past a number that could not be used.
    QCOMPARE(s.value(QStringLiteral("SELECT nextord FROM vendor")).toLongLong(), after);
}

void TestOrderEdges::formRefusesANumberPastTheColumn() {
    OrderSession s;
    QVERIFY(Sql::run(s.db(), QStringLiteral("UPDATE vendor SET nextord = 10000000")));
    s.open();
    QCOMPARE(s.prompter().messages.size(), 1);
    QVERIFY2(s.prompter().messages[0].text.contains(QStringLiteral("ABC10000000")),
             qPrintable(s.prompter().messages[0].text));
    QCOMPARE(s.value(QStringLiteral("SELECT count(*) FROM orderhead")).toInt(), 0);
    QCOMPARE(s.value(QStringLiteral("SELECT nextord FROM vendor")).toLongLong(), qint64(10000000));
}

// The largest quantity of the largest price: the total shows whole, and the line chosen again
// from the grid puts the price in its box whole, so confirming the quantity changes nothing.
// What is stored is the order desk's test.
void TestOrderEdges::largestQuantityAndPrice() {
    OrderSession s;
    s.addItem(QStringLiteral("BIG"), QStringLiteral("Large item"), QStringLiteral("99999.99"));
    s.open();
    s.startOrder();
    s.scan(QStringLiteral("BIG"), QStringLiteral("99999"));
    const QString order = QStringLiteral("ABC1000000");
    const Money expected = *Money::parse(QStringLiteral("9999899000.01"), QLocale::c());
    QCOMPARE(s.header(7)->text(), expected.toString());
    s.chooseRow(1);
    QCOMPARE(Money::parse(s.entry(3)->text()), Money::parse(QStringLiteral("99999.99"), QLocale::c()));
    QTest::keyClick(s.entry(2), Qt::Key_Return);
    QCOMPARE(s.lines(order).size(), 1);
    QCOMPARE(s.lines(order)[0].lineval, expected);
    QCOMPARE(s.orderTotal(order), expected);
}

void TestOrderEdges::headerTextsAtTheirLengths_data() {
    QTest::addColumn<QString>("fill");
    QTest::addColumn<QString>("last");
    QTest::addColumn<int>("spare");
    QTest::newRow("accents") << QStringLiteral("\u00e9") << QStringLiteral("\u00fc") << 1;
    QTest::newRow("CJK") << QStringLiteral("\u6f22") << QStringLiteral("\u5b57") << 1;
    QTest::newRow("emoji as the last character") << QStringLiteral("\u00df") << QStringLiteral("\U0001F600") << 2;
    QTest::newRow("emoji one unit over") << QStringLiteral("\u00df") << QStringLiteral("\U0001F600") << 1;
    QTest::newRow("ASCII one over") << QStringLiteral("a") << QStringLiteral("b") << 0;
}

void TestOrderEdges::headerTextsAtTheirLengths() {
    QFETCH(QString, fill);
    QFETCH(QString, last);
    QFETCH(int, spare);
    OrderSession s;
    s.open();
    const struct {
        int box;
        const char* column;
        int length;
    } boxes[] = {{2, "name", 28}, {3, "reference", 28}, {4, "note1", 100}, {5, "note2", 100}};
    QStringList kept;
    for (const auto& b : boxes) {
        QCOMPARE(s.header(b.box)->maxLength(), b.length);
        const QString typed = test::edgeText(fill, last, b.length, spare);
        test::typeText(s.header(b.box), typed);
        kept << test::keptOf(typed, b.length);
        QCOMPARE(s.header(b.box)->text(), kept.last());
    }
    s.click(s.form()->ui().cmdstartorder);
    for (int i = 0; i < 4; ++i) {
        const QString stored =
            s.value(QStringLiteral("SELECT %1 FROM orderhead").arg(QLatin1String(boxes[i].column))).toString();
        QCOMPARE(stored, kept.at(i));
        QVERIFY(test::wholeCharacters(stored));
    }
}

QTEST_MAIN(TestOrderEdges)
#include "tst_orderedges.moc"
