#include "OrderFixture.h"
#include "common/FormHelpers.h"
#include "orders/BarcodeResolver.h"
#include "orders/OrderWords.h"

#include <QApplication>
#include <QCheckBox>
#include <QLabel>
#include <QLineEdit>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QPushButton>
#include <QTableWidget>
#include <QTest>

using namespace ordwell;
using test::OrderSession;

class TestOrderForm : public test::StrictTest {
    Q_OBJECT
private slots:
    void initTestCase() { test::initTestEnvironment(); }
    void newOrdersAreNumberedInTurn();
    void headerEntryWalksAndSaves();
    void sameCodeMergesAndTotalsKeepTwoDecimals();
    void quantityZero();
    void lineCancelledFromGridAndRevived();
    void barcodeRuleStrips_data();
    void barcodeRuleStrips();
    void scannedCodeThroughRules();
    void unknownItemSavedUnderStrippedCode();
    void unknownItemRefusals();
    void exitLeavesOrderEntered();
    void secondActivationDoesNothing();
    void scannerSession();
};

void TestOrderForm::newOrdersAreNumberedInTurn() {
    OrderSession s;
    OrderForm* form = s.open();
    QVERIFY(form);
    QCOMPARE(s.ctx().OpenWindowCount, 1);
    QVERIFY(!s.window().menuEntry(QStringLiteral("mnuNewOrd"))->isEnabled());
    QCOMPARE(s.header(0)->text(), QStringLiteral("ABC1000000"));
    QCOMPARE(s.header(6)->text(), QStringLiteral("L - Live"));
    QCOMPARE(s.header(7)->text(), QStringLiteral("0.00"));
    QCOMPARE(s.orderStatus(QStringLiteral("ABC1000000")), OrderStatus::Live);
    // Header entry: Start enabled, Edit and Cancel shown but off, entry row shown but locked.
    const OrderFormControls& ui = form->ui();
    QCOMPARE(ui.lblinfo->text(), QStringLiteral("Enter new order details"));
    QVERIFY(ui.cmdstartorder->isVisible() && ui.cmdstartorder->isEnabled());
    QVERIFY(ui.cmdedit->isVisible() && !ui.cmdedit->isEnabled());
    QVERIFY(ui.cmdcancelord->isVisible() && !ui.cmdcancelord->isEnabled());
    QVERIFY(ui.txtitem[0]->isVisible() && ui.txtitem[0]->isReadOnly());
    QVERIFY(ui.chkunknown->isEnabled());
    QVERIFY(!ui.cmdnavbutton[0]->isVisible() && !ui.cmdrecv->isVisible());
    QCOMPARE(QApplication::focusWidget(), s.header(2));
    // Boxes the user never types into stay green; the open header boxes are optional (white).
    QCOMPARE(boxColour(s.header(0)), BoxColour::Locked);
    QCOMPARE(boxColour(s.header(7)), BoxColour::Locked);
    QCOMPARE(boxColour(s.header(2)), BoxColour::Optional);
    QCOMPARE(boxColour(s.entry(0)), BoxColour::Locked);

    // A second new order while the first header is still being entered.
    s.click(ui.cmdbutton[0]);
    QCOMPARE(s.header(0)->text(), QStringLiteral("ABC1000001"));
    QCOMPARE(s.orderStatus(QStringLiteral("ABC1000000")), OrderStatus::Entered);
    QCOMPARE(s.orderTotal(QStringLiteral("ABC1000000")), Money());
    QCOMPARE(s.orderStatus(QStringLiteral("ABC1000001")), OrderStatus::Live);
    QCOMPARE(s.value(QStringLiteral("SELECT nextord FROM vendor")).toInt(), 1000002);
}

void TestOrderForm::headerEntryWalksAndSaves() {
    OrderSession s;
    OrderForm* form = s.open();
    QTest::keyClicks(s.header(2), QStringLiteral("A contact name longer than twenty-eight"));
    QCOMPARE(s.header(2)->text().size(), 28);
    QTest::keyClick(s.header(2), Qt::Key_Return);
    QCOMPARE(QApplication::focusWidget(), s.header(3));
    QTest::keyClicks(s.header(3), QStringLiteral("REF-1"));
    QTest::keyClick(s.header(3), Qt::Key_Return);
    QCOMPARE(QApplication::focusWidget(), s.header(4));
    QTest::keyClick(s.header(4), Qt::Key_Return);
    QCOMPARE(QApplication::focusWidget(), s.header(5));
    QTest::keyClick(s.header(5), Qt::Key_Return);
    QCOMPARE(QApplication::focusWidget(), form->ui().cmdstartorder);
    // Enter on the focused button presses it: line entry, header locked, code box open.
    QTest::keyClick(form->ui().cmdstartorder, Qt::Key_Return);
    QVERIFY(s.header(2)->isReadOnly());
    QVERIFY(!s.entry(0)->isReadOnly());
    QCOMPARE(QApplication::focusWidget(), s.entry(0));
    QCOMPARE(boxColour(s.header(2)), BoxColour::Locked);
    QCOMPARE(boxColour(s.entry(0)), BoxColour::Required);
    QCOMPARE(boxColour(s.entry(2)), BoxColour::Locked);
    QVERIFY(!form->ui().cmdstartorder->isEnabled() && form->ui().cmdedit->isEnabled());
    QVERIFY(form->ui().cmdcancelord->isEnabled());
    QVERIFY(!form->ui().chkunknown->isEnabled());
    QCOMPARE(s.value(QStringLiteral("SELECT reference FROM orderhead")).toString(), QStringLiteral("REF-1"));

    s.click(form->ui().cmdedit);
    QVERIFY(!s.header(2)->isReadOnly() && s.entry(0)->isReadOnly());
    s.header(2)->clear();
    QTest::keyClicks(s.header(2), QStringLiteral("Bea"));
    s.startOrder();
    QCOMPARE(s.value(QStringLiteral("SELECT name FROM orderhead")).toString(), QStringLiteral("Bea"));
}

void TestOrderForm::sameCodeMergesAndTotalsKeepTwoDecimals() {
    OrderSession s;
    s.addItem(QStringLiteral("A1"), QStringLiteral("Widget"), QStringLiteral("1.50"), 6);
    OrderForm* form = s.open();
    s.startOrder();
    s.scan(QStringLiteral("a1"), QStringLiteral("3")); // lower case is turned into capitals
    QCOMPARE(s.header(7)->text(), QStringLiteral("4.50"));
    QCOMPARE(s.orderTotal(QStringLiteral("ABC1000000")), *Money::parse(QStringLiteral("4.50")));
    s.scan(QStringLiteral("A1"), QStringLiteral("3"));
    QCOMPARE(s.header(7)->text(), QStringLiteral("9.00"));
    const auto lines = s.lines(QStringLiteral("ABC1000000"));
    QCOMPARE(lines.size(), 1);
    QCOMPARE(lines[0].qty, 6);
    QCOMPARE(lines[0].lineval, *Money::parse(QStringLiteral("9")));
    QCOMPARE(s.orderTotal(QStringLiteral("ABC1000000")), *Money::parse(QStringLiteral("9")));
    // The grid shows the line in row 1; ready for the next code.
    QTableWidget* grid = form->ui().flxitems;
    QCOMPARE(grid->item(1, 0)->text(), QStringLiteral("1"));
    QCOMPARE(grid->item(1, 2)->text(), QStringLiteral("Widget"));
    QCOMPARE(grid->item(1, 3)->text(), QStringLiteral("6"));
    QCOMPARE(grid->item(1, 4)->text(), QStringLiteral("1.50"));
    QCOMPARE(grid->item(1, 5)->text(), QStringLiteral("6"));
    QVERIFY(grid->item(0, 1)->text().isEmpty());
    QCOMPARE(QApplication::focusWidget(), s.entry(0));
    QVERIFY(s.entry(0)->text().isEmpty());
}

void TestOrderForm::quantityZero() {
    OrderSession s;
    s.addItem(QStringLiteral("B2"), QStringLiteral("Bolt"), QStringLiteral("2.00"));
    s.open();
    s.startOrder();
    s.scan(QStringLiteral("B2"), QStringLiteral("0"));
    auto lines = s.lines(QStringLiteral("ABC1000000"));
    QCOMPARE(lines.size(), 1);
    QCOMPARE(lines[0].qty, 0);
    QCOMPARE(lines[0].status, OrderStatus::Live);
    s.scan(QStringLiteral("B2"), QStringLiteral("4"));
    s.scan(QStringLiteral("B2"), QStringLiteral("0")); // outside editing: nothing added
    lines = s.lines(QStringLiteral("ABC1000000"));
    QCOMPARE(lines.size(), 1);
    QCOMPARE(lines[0].qty, 4);
    QCOMPARE(s.header(7)->text(), QStringLiteral("8.00"));
    // A negative or non-numeric quantity is not recorded and keeps the focus.
    s.scan(QStringLiteral("B2"), QStringLiteral("-1"));
    QCOMPARE(QApplication::focusWidget(), s.entry(2));
    QCOMPARE(s.lines(QStringLiteral("ABC1000000"))[0].qty, 4);
}

void TestOrderForm::lineCancelledFromGridAndRevived() {
    OrderSession s;
    s.addItem(QStringLiteral("A1"), QStringLiteral("Widget"), QStringLiteral("1.50"));
    s.addItem(QStringLiteral("C3"), QStringLiteral("Cog"), QStringLiteral("0.25"));
    OrderForm* form = s.open();
    s.startOrder();
    s.scan(QStringLiteral("A1"), QStringLiteral("2"));
    s.scan(QStringLiteral("C3"), QStringLiteral("4"));
    QCOMPARE(s.header(7)->text(), QStringLiteral("4.00"));
    s.chooseRow(1);
    QCOMPARE(QApplication::focusWidget(), s.entry(2));
    QCOMPARE(s.entry(0)->text(), QStringLiteral("A1"));
    QCOMPARE(s.entry(2)->text(), QStringLiteral("2"));
    s.entry(2)->selectAll();
    QTest::keyClicks(s.entry(2), QStringLiteral("0"));
    QTest::keyClick(s.entry(2), Qt::Key_Return);
    auto lines = s.lines(QStringLiteral("ABC1000000"));
    QCOMPARE(lines[0].status, OrderStatus::Cancelled);
    QCOMPARE(lines[0].lineval, Money());
    QCOMPARE(s.header(7)->text(), QStringLiteral("1.00"));
    QCOMPARE(s.orderTotal(QStringLiteral("ABC1000000")), *Money::parse(QStringLiteral("1")));
    QCOMPARE(form->ui().flxitems->item(1, 1)->background().color(), QColor(255, 0, 0));
    // Entered again: the same line comes back to life with the new quantity.
    s.scan(QStringLiteral("A1"), QStringLiteral("3"));
    lines = s.lines(QStringLiteral("ABC1000000"));
    QCOMPARE(lines.size(), 2);
    QCOMPARE(lines[0].status, OrderStatus::Live);
    QCOMPARE(lines[0].qty, 3);
    QCOMPARE(s.header(7)->text(), QStringLiteral("5.50"));
    QCOMPARE(form->ui().flxitems->item(1, 1)->background().color(), QColor(255, 255, 255));
    // Choosing a line and giving a new quantity replaces it.
    s.chooseRow(2);
    s.entry(2)->selectAll();
    QTest::keyClicks(s.entry(2), QStringLiteral("8"));
    QTest::keyClick(s.entry(2), Qt::Key_Return);
    QCOMPARE(s.lines(QStringLiteral("ABC1000000"))[1].qty, 8);
    QCOMPARE(s.header(7)->text(), QStringLiteral("6.50"));
}

void TestOrderForm::barcodeRuleStrips_data() {
    QTest::addColumn<QString>("start");
    QTest::addColumn<int>("first");
    QTest::addColumn<int>("last");
    QTest::addColumn<QString>("code");
    QTest::addColumn<QString>("result"); // empty: the rule does not apply
    QTest::newRow("strips both ends") << "99" << 2 << 1 << "9912345X"
                                      << "12345";
    QTest::newRow("empty prefix never matches") << "" << 1 << 0 << "9912345X"
                                                << "";
    QTest::newRow("prefix is case-sensitive") << "ab" << 2 << 0 << "AB123"
                                              << "";
    QTest::newRow("skip first not below length") << "99" << 4 << 0 << "9912"
                                                 << "";
    QTest::newRow("skip last not below what remains") << "99" << 2 << 2 << "9912"
                                                      << "";
    QTest::newRow("nothing to skip") << "5" << 0 << 0 << "5000"
                                     << "5000";
}

void TestOrderForm::barcodeRuleStrips() {
    QFETCH(QString, start);
    QFETCH(int, first);
    QFETCH(int, last);
    QFETCH(QString, code);
    QFETCH(QString, result);
    const auto stripped = BarcodeResolver::strip(
        {.codestart = start, .skipfirst = first, .skiplast = last, .status = BarcodeRules::Active}, code);
    QCOMPARE(stripped.value_or(QString()), result);
}

void TestOrderForm::scannedCodeThroughRules() {
    OrderSession s;
    s.addItem(QStringLiteral("12345"), QStringLiteral("Rule item"), QStringLiteral("1.00"), 1, 2);
    s.addItem(QStringLiteral("777"), QStringLiteral("Chained"), QStringLiteral("3.00"));
    s.addRule(QStringLiteral("88"), 1, 0, QStringLiteral("I")); // inactive: never tried
    s.addRule(QStringLiteral("99"), 2, 1);
    s.addRule(QStringLiteral("X"), 1, 0);
    s.addRule(QStringLiteral("Y"), 1, 1);
    s.open();
    s.startOrder();
    QTest::keyClicks(s.entry(0), QStringLiteral("9912345X"));
    QTest::keyClick(s.entry(0), Qt::Key_Return);
    QCOMPARE(s.entry(0)->text(), QStringLiteral("12345"));
    QCOMPARE(s.entry(1)->text(), QStringLiteral("Rule item"));
    QCOMPARE(s.entry(2)->text(), QStringLiteral("2"));
    QCOMPARE(QApplication::focusWidget(), s.entry(2));
    QTest::keyClick(s.entry(2), Qt::Key_Return);
    // Rules act one after another on what the previous one left: XY7770 -> Y7770 -> 777.
    s.scan(QStringLiteral("XY7770"));
    const auto lines = s.lines(QStringLiteral("ABC1000000"));
    QCOMPARE(lines.size(), 2);
    QCOMPARE(lines[0].code, QStringLiteral("12345"));
    QCOMPARE(lines[0].qty, 2);
    QCOMPARE(lines[1].code, QStringLiteral("777"));
    // A code with a quote finds nothing and, unknown items not being saved, is dropped.
    QTest::keyClicks(s.entry(0), QStringLiteral("A'1"));
    QTest::keyClick(s.entry(0), Qt::Key_Return);
    QVERIFY(s.entry(0)->text().isEmpty());
    QCOMPARE(QApplication::focusWidget(), s.entry(0));
    QVERIFY(s.prompter().messages.isEmpty());
}

void TestOrderForm::unknownItemSavedUnderStrippedCode() {
    OrderSession s;
    s.addItem(QStringLiteral("A1"), QStringLiteral("Widget"), QStringLiteral("1.50"));
    s.addRule(QStringLiteral("99"), 2, 1);
    OrderForm* form = s.open();
    QTest::mouseClick(form->ui().chkunknown, Qt::LeftButton, {}, QPoint(4, form->ui().chkunknown->height() / 2));
    QVERIFY(form->ui().chkunknown->isChecked());
    s.startOrder();
    QTest::keyClicks(s.entry(0), QStringLiteral("99ZZZX"));
    QTest::keyClick(s.entry(0), Qt::Key_Return);
    QCOMPARE(s.entry(0)->text(), QStringLiteral("ZZZ"));
    QCOMPARE(form->ui().lblinfo->text(),
             QStringLiteral("Please enter a description, price and pack quantity for this unknown item"));
    QCOMPARE(QApplication::focusWidget(), s.entry(1));
    QTest::keyClick(s.entry(1), Qt::Key_Return); // empty description: stays
    QCOMPARE(QApplication::focusWidget(), s.entry(1));
    QTest::keyClicks(s.entry(1), QStringLiteral("Mystery part"));
    QTest::keyClick(s.entry(1), Qt::Key_Tab);
    QCOMPARE(QApplication::focusWidget(), s.entry(3));
    s.entry(3)->clear();
    QTest::keyClicks(s.entry(3), QStringLiteral("12"));
    QTest::keyClick(s.entry(3), Qt::Key_Return);
    QCOMPARE(QApplication::focusWidget(), s.entry(4));
    QTest::keyClick(s.entry(4), Qt::Key_Return); // empty pack becomes 1
    QCOMPARE(s.entry(3)->text(), QStringLiteral("12.00"));
    QCOMPARE(s.entry(4)->text(), QStringLiteral("1"));
    QVERIFY(form->ui().lblinfo->text().isEmpty());
    QCOMPARE(QApplication::focusWidget(), s.entry(2));
    QCOMPARE(s.value(QStringLiteral("SELECT price FROM items WHERE code = 'ZZZ'")).toLongLong(), 120000);
    QCOMPARE(s.value(QStringLiteral("SELECT defqty FROM items WHERE code = 'ZZZ'")).toInt(), 1);
    QCOMPARE(s.value(QStringLiteral("SELECT priceexp FROM items WHERE code = 'ZZZ'")).toString(),
             QStringLiteral("2010-12-31"));
    QTest::keyClicks(s.entry(2), QStringLiteral("2"));
    QTest::keyClick(s.entry(2), Qt::Key_Return);
    const auto lines = s.lines(QStringLiteral("ABC1000000"));
    QCOMPARE(lines.size(), 1);
    QCOMPARE(lines[0].code, QStringLiteral("ZZZ"));
    QCOMPARE(s.header(7)->text(), QStringLiteral("24.00"));
    QVERIFY(s.prompter().messages.isEmpty());
}

void TestOrderForm::unknownItemRefusals() {
    OrderSession s;
    OrderForm* form = s.open();
    form->ui().chkunknown->setChecked(true);
    s.startOrder();
    QTest::keyClicks(s.entry(0), QStringLiteral("AB-1"));
    QTest::keyClick(s.entry(0), Qt::Key_Return);
    QCOMPARE(s.prompter().lastText(), QStringLiteral("The item code contains illegal characters"));
    QCOMPARE(s.prompter().messages.last().title, QStringLiteral("Data Error"));
    QCOMPARE(s.entry(0)->text(), QStringLiteral("AB-1"));
    QVERIFY(!s.entry(0)->isReadOnly());

    s.entry(0)->setText(QStringLiteral("NEW1"));
    QTest::keyClick(s.entry(0), Qt::Key_Return);
    QTest::keyClicks(s.entry(1), QStringLiteral("Thing"));
    s.entry(3)->setText(QStringLiteral("1.2.3"));
    QTest::keyClick(s.entry(4), Qt::Key_Return);
    QCOMPARE(s.prompter().messages.last().title, QStringLiteral("Invalid price"));
    QCOMPARE(QApplication::focusWidget(), s.entry(3));
    s.entry(3)->setText(QStringLiteral("1.20"));
    s.entry(4)->setText(QStringLiteral("six"));
    QTest::keyClick(s.entry(4), Qt::Key_Return);
    QCOMPARE(s.prompter().messages.last().title, QStringLiteral("Invalid pack quantity"));
    QCOMPARE(s.value(QStringLiteral("SELECT count(*) FROM items")).toInt(), 0);
}

void TestOrderForm::exitLeavesOrderEntered() {
    OrderSession s;
    s.addItem(QStringLiteral("A1"), QStringLiteral("Widget"), QStringLiteral("1.50"));
    s.addItem(QStringLiteral("C3"), QStringLiteral("Cog"), QStringLiteral("0.25"));
    OrderForm* form = s.open();
    s.startOrder();
    s.scan(QStringLiteral("A1"), QStringLiteral("2"));
    s.scan(QStringLiteral("C3"), QStringLiteral("3"));
    s.chooseRow(2);
    s.entry(2)->selectAll();
    QTest::keyClicks(s.entry(2), QStringLiteral("0"));
    QTest::keyClick(s.entry(2), Qt::Key_Return);
    const QString shown = s.header(7)->text();
    QCOMPARE(shown, QStringLiteral("3.00"));
    QPointer<QWidget> frame = form->parentWidget();
    s.click(form->ui().cmdbutton[5]);
    QTRY_VERIFY(frame.isNull());
    QCOMPARE(s.ctx().OpenWindowCount, 0);
    QVERIFY(s.window().menuEntry(QStringLiteral("mnuNewOrd"))->isEnabled());
    QCOMPARE(s.orderStatus(QStringLiteral("ABC1000000")), OrderStatus::Entered);
    QCOMPARE(s.orderTotal(QStringLiteral("ABC1000000")), *Money::parse(shown));
    const auto lines = s.lines(QStringLiteral("ABC1000000"));
    QCOMPARE(lines[0].status, OrderStatus::Entered);
    QCOMPARE(lines[1].status, OrderStatus::Cancelled);
    // After Exit the next opening starts afresh.
    QVERIFY(s.open());
    QCOMPARE(s.header(0)->text(), QStringLiteral("ABC1000001"));
}

void TestOrderForm::secondActivationDoesNothing() {
    OrderSession s;
    OrderForm* form = s.open();
    QTest::keyClicks(s.header(2), QStringLiteral("Typed"));
    auto* other = new QWidget;
    other->setObjectName(QStringLiteral("other"));
    QMdiSubWindow* otherFrame = s.window().mdiArea()->addSubWindow(other);
    otherFrame->show();
    s.window().mdiArea()->setActiveSubWindow(otherFrame);
    s.window().mdiArea()->setActiveSubWindow(qobject_cast<QMdiSubWindow*>(form->parentWidget()));
    QCOMPARE(s.window().mdiArea()->activeSubWindow(), form->parentWidget());
    QCOMPARE(s.header(0)->text(), QStringLiteral("ABC1000000"));
    QCOMPARE(s.header(2)->text(), QStringLiteral("Typed"));
    QCOMPARE(s.value(QStringLiteral("SELECT count(*) FROM orderhead")).toInt(), 1);
    delete otherFrame;
}

void TestOrderForm::scannerSession() {
    OrderSession s;
    for (int i = 0; i < 20; ++i)
        s.addItem(QStringLiteral("S%1").arg(i), QStringLiteral("Scanned %1").arg(i), QStringLiteral("%1.25").arg(i), 1,
                  1 + i % 3);
    s.addRule(QStringLiteral("0"), 1, 1);
    s.open();
    s.startOrder();
    QMap<QString, int> expected;
    Money total;
    for (int n = 0; n < 100; ++n) {
        const int i = (n * 7) % 20;
        const QString code = QStringLiteral("S%1").arg(i);
        // Every other scan arrives wrapped by the scanner's prefix and check character.
        const QString scanned = n % 2 ? QStringLiteral("0%1K").arg(code) : code;
        // Each key goes to whichever box has the focus at that moment.
        QTest::keyClicks(QApplication::focusWidget(), scanned);
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
        expected[code] += 1 + i % 3;
        total += *Money::parse(QStringLiteral("%1.25").arg(i)) * (1 + i % 3);
    }
    const auto lines = s.lines(QStringLiteral("ABC1000000"));
    QCOMPARE(lines.size(), expected.size());
    for (const auto& line : lines)
        QCOMPARE(line.qty, expected.value(line.code));
    QCOMPARE(s.orderTotal(QStringLiteral("ABC1000000")), total);
    QCOMPARE(s.header(7)->text(), total.toString());
}

QTEST_MAIN(TestOrderForm)
#include "tst_orderform.moc"
