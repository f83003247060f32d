#include "OrderFixture.h"
#include "common/FormHelpers.h"

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
    void linesEnteredCancelledAndRevived();
    void unknownItemSavedUnderStrippedCode_data();
    void unknownItemSavedUnderStrippedCode();
    void unknownItemRefusals();
    void secondActivationDoesNothing();
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
    QCOMPARE(s.orderStatus(QStringLiteral("ABC1000000")), QStringLiteral("L"));
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
    QCOMPARE(s.orderStatus(QStringLiteral("ABC1000000")) + s.orderStatus(QStringLiteral("ABC1000001")),
             QStringLiteral("EL"));
    QCOMPARE(s.orderTotal(QStringLiteral("ABC1000000")), Money());
    QCOMPARE(s.value(QStringLiteral("SELECT nextord FROM vendor")).toInt(), 1000002);
}

void TestOrderForm::headerEntryWalksAndSaves() {
    OrderSession s;
    OrderForm* form = s.open();
    s.enter(s.header(2), QStringLiteral("A contact name longer than twenty-eight"));
    QCOMPARE(s.header(2)->text().size(), 28);
    QCOMPARE(QApplication::focusWidget(), s.header(3));
    s.enter(s.header(3), QStringLiteral("REF-1"));
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

// Lines typed in: the grid shows each in its row, ready for the next code; a negative quantity
// is not taken. A line cancelled from the grid (quantity 0) turns red and comes back when
// entered again. Exit leaves the order and its live lines "E" with the total shown, and the
// next opening starts afresh.
void TestOrderForm::linesEnteredCancelledAndRevived() {
    OrderSession s;
    s.addItem(QStringLiteral("A1"), QStringLiteral("Widget"), QStringLiteral("1.50"), 6);
    s.addItem(QStringLiteral("C3"), QStringLiteral("Cog"), QStringLiteral("0.25"));
    OrderForm* form = s.open();
    s.startOrder();
    s.scan(QStringLiteral("a1"), QStringLiteral("2"));
    QTableWidget* grid = form->ui().flxitems;
    QStringList row;
    for (int column = 0; column < 6; ++column)
        row << grid->item(1, column)->text();
    QCOMPARE(row, (QStringList{"1", "A1", "Widget", "2", "1.50", "6"}));
    QCOMPARE(QApplication::focusWidget(), s.entry(0));
    QVERIFY(s.entry(0)->text().isEmpty());
    s.scan(QStringLiteral("C3"), QStringLiteral("-1"));
    QCOMPARE(QApplication::focusWidget(), s.entry(2));
    s.enter(s.entry(2), QStringLiteral("4"), true);
    QCOMPARE(s.header(7)->text(), QStringLiteral("4.00"));
    s.chooseRow(1);
    QCOMPARE(QApplication::focusWidget(), s.entry(2));
    QCOMPARE(s.entry(0)->text(), QStringLiteral("A1"));
    QCOMPARE(s.entry(2)->text(), QStringLiteral("2"));
    s.enter(s.entry(2), QStringLiteral("0"), true);
    QCOMPARE(s.linesText(QStringLiteral("ABC1000000")), QStringLiteral("A1 0 0.00 C|C3 4 1.00 L"));
    QCOMPARE(s.header(7)->text(), QStringLiteral("1.00"));
    QCOMPARE(grid->item(1, 1)->background().color(), QColor(255, 0, 0));
    s.scan(QStringLiteral("A1"), QStringLiteral("3"));
    QCOMPARE(s.header(7)->text(), QStringLiteral("5.50"));
    QCOMPARE(grid->item(1, 1)->background().color(), QColor(255, 255, 255));

    QPointer<QWidget> frame = form->parentWidget();
    s.click(form->ui().cmdbutton[5]);
    QTRY_VERIFY(frame.isNull());
    QCOMPARE(s.ctx().OpenWindowCount, 0);
    QVERIFY(s.window().menuEntry(QStringLiteral("mnuNewOrd"))->isEnabled());
    QCOMPARE(s.orderStatus(QStringLiteral("ABC1000000")) + s.lineStatuses(QStringLiteral("ABC1000000")),
             QStringLiteral("EEE"));
    QCOMPARE(s.orderTotal(QStringLiteral("ABC1000000")), *Money::parse(QStringLiteral("5.50")));
    QVERIFY(s.open());
    QCOMPARE(s.header(0)->text(), QStringLiteral("ABC1000001"));
}

// Typed as the price of an unknown item, up to the box's eight characters: the box shows it
// grouped where that fits, and catalogue and line keep every digit.
void TestOrderForm::unknownItemSavedUnderStrippedCode_data() {
    QTest::addColumn<QString>("typed");
    QTest::addColumn<QString>("shown");
    QTest::newRow("grouped") << QStringLiteral("9999.99") << QStringLiteral("9,999.99");
    QTest::newRow("too long to group") << QStringLiteral("99999.99") << QStringLiteral("99999.99");
    QTest::newRow("eight digits") << QStringLiteral("99999999") << QStringLiteral("99999999.00");
}

void TestOrderForm::unknownItemSavedUnderStrippedCode() {
    QFETCH(QString, typed);
    QFETCH(QString, shown);
    OrderSession s;
    s.addItem(QStringLiteral("A1"), QStringLiteral("Widget"), QStringLiteral("1.50"));
    s.addRule(QStringLiteral("99"), 2, 1);
    OrderForm* form = s.open();
    QTest::mouseClick(form->ui().chkunknown, Qt::LeftButton, {}, QPoint(4, form->ui().chkunknown->height() / 2));
    QVERIFY(form->ui().chkunknown->isChecked());
    s.startOrder();
    s.enter(s.entry(0), QStringLiteral("99ZZZX"));
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
    s.enter(s.entry(3), typed);
    QCOMPARE(QApplication::focusWidget(), s.entry(4));
    QTest::keyClick(s.entry(4), Qt::Key_Return); // empty pack becomes 1
    QCOMPARE(s.entry(3)->text(), shown);
    QCOMPARE(s.entry(4)->text(), QStringLiteral("1"));
    QVERIFY(form->ui().lblinfo->text().isEmpty());
    QCOMPARE(QApplication::focusWidget(), s.entry(2));
    const Money price = *Money::parse(typed, QLocale::c());
    QCOMPARE(s.value(QStringLiteral("SELECT price FROM items WHERE code = 'ZZZ'")).toLongLong(),
             price.tenThousandths());
    QCOMPARE(s.value(QStringLiteral("SELECT defqty FROM items WHERE code = 'ZZZ'")).toInt(), 1);
    QCOMPARE(s.value(QStringLiteral("SELECT priceexp FROM items WHERE code = 'ZZZ'")).toString(),
             QStringLiteral("2010-12-31"));
    s.enter(s.entry(2), QStringLiteral("2"));
    QCOMPARE(s.linesText(QStringLiteral("ABC1000000")), QStringLiteral("ZZZ 2 %1 L").arg((price * 2).toString()));
    QCOMPARE(s.value(QStringLiteral("SELECT price FROM orderline")).toLongLong(), price.tenThousandths());
    QCOMPARE(s.header(7)->text(), (price * 2).toString());
    QVERIFY(s.prompter().messages.isEmpty());
}

void TestOrderForm::unknownItemRefusals() {
    OrderSession s;
    OrderForm* form = s.open();
    form->ui().chkunknown->setChecked(true);
    s.startOrder();
    s.enter(s.entry(0), QStringLiteral("AB-1"));
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

QTEST_MAIN(TestOrderForm)
#include "tst_orderform.moc"
