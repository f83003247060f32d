#include "CatalogueSession.h"
#include "catalogue/ItemForm.h"
#include "catalogue/ItemRepository.h"
#include "common/FormHelpers.h"
#include "support/EdgeText.h"

#include <QApplication>
#include <QLabel>
#include <QLineEdit>
#include <QMdiArea>
#include <QPushButton>
#include <QScreen>
#include <QScrollBar>
#include <QTest>

using namespace ordwell;

namespace {

const QDate Today(2026, 3, 15);
const QString Expired = QStringLiteral("The price has already expired, please enter a date in the future");
const QString Duplicate =
    QStringLiteral("A Duplicate item code has been detected, please choose a different item code");

// The main window with a vendor open and its item window opened from the menu.
class Desk : public test::CatalogueSession {
public:
    explicit Desk(const QStringList& codes = {}) {
        for (const QString& code : codes)
            addItem(code, QStringLiteral("About ") + code);
        open();
    }
    void open() {
        window->triggerMenu(QStringLiteral("mnueditms"));
        form = window->findChild<ItemForm*>(QStringLiteral("frmaddedititem"));
        QVERIFY(form);
        form->setToday(Today);
    }

    QLineEdit* box(int i) { return test::child<QLineEdit>(form, QStringLiteral("txtbox_%1").arg(i)); }
    QPushButton* button(int i) { return test::child<QPushButton>(form, QStringLiteral("cmdbutton_%1").arg(i)); }
    void press(int i) {
        QVERIFY2(button(i)->isEnabled(), qPrintable(button(i)->text()));
        QTest::mouseClick(button(i), Qt::LeftButton);
    }
    QString position() { return test::child<QLabel>(form, QStringLiteral("lblreccount"))->text(); }
    QString mask() {
        QString m;
        for (int i = 0; i < ItemForm::ButtonCount; ++i)
            m += button(i)->isEnabled() ? QLatin1Char('1') : QLatin1Char('0');
        return m;
    }
    QString shown() {
        QStringList texts;
        for (int i = 0; i < 6; ++i)
            texts << box(i)->text();
        return texts.join(QLatin1Char('|'));
    }
    // Which boxes are open for typing, as '1' per box.
    QString open_() {
        QString m;
        for (int i = 0; i < 6; ++i)
            m += box(i)->isReadOnly() ? QLatin1Char('0') : QLatin1Char('1');
        return m;
    }
    // Typed as a keyboard types it, an emoji being one key.
    void type(int i, const QString& text) {
        box(i)->setFocus();
        box(i)->selectAll();
        test::typeText(box(i), text);
    }
    void typeEnter(int i, const QString& text) {
        type(i, text);
        test::pressEnter(box(i));
    }
    QString stored(const QString& code) {
        return Sql::scalar(ctx().vendorDb(),
                           QStringLiteral("SELECT code || '|' || descr || '|' || packqty || '|' || defqty || '|' || "
                                          "price || '|' || priceexp FROM items WHERE code = ?"),
                           {code})
            ->toString();
    }

    QPointer<ItemForm> form;
};

} // namespace

class TestItemForm : public test::StrictTest {
    Q_OBJECT
private slots:
    void initTestCase() { test::initTestEnvironment(); }

    void opensOnAnEmptyCatalogue() {
        Desk d;
        QCOMPARE(d.position(), QStringLiteral("There are no active items"));
        QCOMPARE(d.mask(), QStringLiteral("1000000001"));
        QCOMPARE(d.open_(), QStringLiteral("000000"));
        QCOMPARE(boxColour(d.box(0)), BoxColour::Locked);
        QCOMPARE(d.menus(), MenuMasks::VendorWindow.left(18));
        QCOMPARE(d.ctx().OpenWindowCount, 1);
        // A screen reader reads the position label's own text, and a name for each arrow.
        QVERIFY(test::child<QLabel>(d.form, "lblreccount")->accessibleName().isEmpty());
        QCOMPARE(d.button(3)->accessibleName(), QStringLiteral("First item"));
    }

    // The main window at its first size (433 pixels) is narrower than the item window: it grows
    // as far as the screen allows, and the work area scrolls to whatever still lies beyond.
    void opensWithinReach() {
        Desk d({QStringLiteral("A1")});
        const QRect frame = d.form->parentWidget()->geometry();
        QMdiArea* area = d.window->mdiArea();
        QVERIFY(d.window->width() > 433);
        QVERIFY(d.window->screen()->availableGeometry().contains(d.window->frameGeometry()));
        QVERIFY(frame.left() >= 0 && frame.top() >= 0);
        const int right = frame.right() + 1 - area->viewport()->width();
        const int below = frame.bottom() + 1 - area->viewport()->height();
        QTRY_VERIFY(right <= 0 ||
                    (area->horizontalScrollBar()->isVisible() && area->horizontalScrollBar()->maximum() >= right));
        QTRY_VERIFY(below <= 0 ||
                    (area->verticalScrollBar()->isVisible() && area->verticalScrollBar()->maximum() >= below));
    }

    void masksFollowThePosition() {
        Desk d({QStringLiteral("B2"), QStringLiteral("A1"), QStringLiteral("C3")});
        QCOMPARE(d.shown(), QStringLiteral("A1|About A1|6|2|12.50|30/06/2030"));
        QCOMPARE(d.position(), QStringLiteral("Record 1 of 3"));
        QCOMPARE(d.mask(), QStringLiteral("1000011111"));
        d.press(ItemForm::Next);
        QCOMPARE(d.shown().left(2), QStringLiteral("B2"));
        QCOMPARE(d.position(), QStringLiteral("Record 2 of 3"));
        QCOMPARE(d.mask(), QStringLiteral("1001111111"));
        d.press(ItemForm::Last);
        QCOMPARE(d.shown().left(2), QStringLiteral("C3"));
        QCOMPARE(d.mask(), QStringLiteral("1001110011"));
        d.press(ItemForm::Previous);
        QCOMPARE(d.position(), QStringLiteral("Record 2 of 3"));
        d.press(ItemForm::First);
        QCOMPARE(d.position(), QStringLiteral("Record 1 of 3"));
    }

    void addsAnItemByKeyboard() {
        Desk d({QStringLiteral("M5")});
        d.press(ItemForm::AddItem);
        QCOMPARE(d.shown(), QStringLiteral("|||||"));
        QCOMPARE(d.mask(), QStringLiteral("0110000000"));
        QCOMPARE(d.position(), QStringLiteral("Adding New Record"));
        QCOMPARE(d.open_(), QStringLiteral("111111"));
        QCOMPARE(boxColour(d.box(3)), BoxColour::Required);
        QCOMPARE(QApplication::focusWidget(), d.box(0));

        // Each Enter moves to the next box once the box's own check passes.
        const struct {
            int box;
            const char* typed;
            int focus;
        } steps[] = {{0, "ab12", 1}, {1, "", 1},  {1, "Apple's best", 2}, {2, "x", 2},
                     {2, "12", 3},   {3, "3", 4}, {4, "1234.5", 5}};
        for (const auto& step : steps) {
            d.typeEnter(step.box, QString::fromLatin1(step.typed));
            QCOMPARE(QApplication::focusWidget(), d.box(step.focus));
        }
        QCOMPARE(d.box(0)->text(), QStringLiteral("AB12"));
        QCOMPARE(d.box(4)->text(), QStringLiteral("1,234.50"));
        QVERIFY(d.prompter().messages.isEmpty());

        // Enter refuses an expiry of today; Save takes it. Enter moves to Save, and the next
        // Enter presses it.
        d.typeEnter(5, QStringLiteral("15/03/2026"));
        QCOMPARE(d.prompter().texts(), QStringList{Expired});
        QCOMPARE(d.prompter().messages.first().title, QStringLiteral("Invalid date"));
        QCOMPARE(d.box(5)->text(), QString());
        QCOMPARE(QApplication::focusWidget(), d.box(5));
        d.typeEnter(5, QStringLiteral("16/03/2026"));
        QCOMPARE(QApplication::focusWidget(), d.button(ItemForm::Save));
        d.box(5)->setText(QStringLiteral("15/03/2026"));
        d.prompter().clear();
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
        QVERIFY(d.prompter().messages.isEmpty());
        QCOMPARE(d.stored(QStringLiteral("AB12")), QStringLiteral("AB12|Apple's best|12|3|12345000|2026-03-15"));
        // After adding, the list stands at its first row.
        QCOMPARE(d.position(), QStringLiteral("Record 1 of 2"));
        QCOMPARE(d.shown().left(4), QStringLiteral("AB12"));
        QCOMPARE(d.open_(), QStringLiteral("000000"));
        QCOMPARE(QApplication::focusWidget(), d.button(ItemForm::AddItem));
    }

    void saveRefusesInFieldOrderAndDuplicates() {
        Desk d({QStringLiteral("AB12")});
        d.press(ItemForm::AddItem);
        d.type(0, QStringLiteral("ab12"));
        d.type(1, QStringLiteral("Apple"));
        d.type(2, QStringLiteral("6"));
        d.type(3, QStringLiteral("1"));
        d.type(4, QStringLiteral("12.5O"));
        d.type(5, QStringLiteral("yesterday"));
        d.press(ItemForm::Save);
        QCOMPARE(d.prompter().texts(), QStringList{"You have not entered a valid price, please correct these details"});
        QCOMPARE(d.box(4)->text(), QString());
        QCOMPARE(QApplication::focusWidget(), d.box(4));
        QCOMPARE(d.position(), QStringLiteral("Adding New Record"));

        // The code, upper-cased, is already taken: nothing is stored and the add goes on.
        d.prompter().clear();
        d.type(4, QStringLiteral("12.50"));
        d.type(5, QStringLiteral("01/01/2027"));
        d.press(ItemForm::Save);
        QCOMPARE(d.prompter().texts(), QStringList{Duplicate});
        QCOMPARE(d.prompter().messages.first().title, QStringLiteral("Duplicate Item Code"));
        QCOMPARE(d.box(0)->text(), QStringLiteral("AB12"));
        QCOMPARE(QApplication::focusWidget(), d.box(0));
        QCOMPARE(d.mask(), QStringLiteral("0110000000"));
        QCOMPARE(*Sql::scalar(d.ctx().vendorDb(), QStringLiteral("SELECT COUNT(*) FROM items")), QVariant(1));

        // Enter in the code box says the same before the rest is typed.
        d.prompter().clear();
        d.typeEnter(0, QStringLiteral("Ab12"));
        QCOMPARE(d.prompter().texts(), QStringList{Duplicate});

        // A product barcode another item carries is refused on Save, with the box to correct.
        QVERIFY(Sql::run(d.ctx().vendorDb(), QStringLiteral("UPDATE items SET gtin = '04006381333931'")));
        d.prompter().clear();
        d.type(0, QStringLiteral("NEW1"));
        d.type(6, QStringLiteral("4006381333931"));
        d.press(ItemForm::Save);
        QCOMPARE(d.prompter().messages.first().title, QStringLiteral("Duplicate GTIN"));
        QCOMPARE(QApplication::focusWidget(), d.box(6));
        QCOMPARE(*Sql::scalar(d.ctx().vendorDb(), QStringLiteral("SELECT COUNT(*) FROM items")), QVariant(1));

        // Cancel returns to the first item, untouched.
        d.press(ItemForm::Cancel);
        QCOMPARE(d.shown(), QStringLiteral("AB12|About AB12|6|2|12.50|30/06/2030"));
        QCOMPARE(d.position(), QStringLiteral("Record 1 of 1"));
    }

    void editsAllButTheCode() {
        Desk d({QStringLiteral("A1"), QStringLiteral("B2"), QStringLiteral("C3")});
        d.press(ItemForm::Next);
        d.press(ItemForm::Edit);
        QCOMPARE(d.open_(), QStringLiteral("011111"));
        QCOMPARE(boxColour(d.box(0)), BoxColour::Locked);
        QCOMPARE(d.position(), QStringLiteral("Editing Record"));
        QCOMPARE(QApplication::focusWidget(), d.box(1));

        d.type(1, QStringLiteral("Banana, ripe"));
        d.type(4, QStringLiteral("0.99"));
        d.press(ItemForm::Save);
        QVERIFY(d.prompter().messages.isEmpty());
        QCOMPARE(d.stored(QStringLiteral("B2")), QStringLiteral("B2|Banana, ripe|6|2|9900|2030-06-30"));
        QCOMPARE(d.position(), QStringLiteral("Record 2 of 3"));
        QCOMPARE(d.shown(), QStringLiteral("B2|Banana, ripe|6|2|0.99|30/06/2030"));

        // Cancel throws the edit away and stays on the item.
        d.press(ItemForm::Last);
        d.press(ItemForm::Edit);
        d.type(1, QStringLiteral("Changed my mind"));
        d.press(ItemForm::Cancel);
        QCOMPARE(d.shown(), QStringLiteral("C3|About C3|6|2|12.50|30/06/2030"));
        QCOMPARE(d.position(), QStringLiteral("Record 3 of 3"));
        QCOMPARE(d.mask(), QStringLiteral("1001110011"));
        QCOMPARE(d.stored(QStringLiteral("C3")), QStringLiteral("C3|About C3|6|2|125000|2030-06-30"));

        // Someone else stores the item while it is being edited here: this save is refused and
        // the window shows what they stored.
        d.press(ItemForm::Edit);
        d.type(1, QStringLiteral("Mine"));
        QVERIFY(Sql::run(d.ctx().vendorDb(), QStringLiteral("UPDATE items SET descr = 'Theirs' WHERE code = 'C3'")));
        d.prompter().expect(ItemRepository::ChangedElsewhereText.arg(QStringLiteral("C3")));
        d.press(ItemForm::Save);
        QCOMPARE(d.shown(), QStringLiteral("C3|Theirs|6|2|12.50|30/06/2030"));
        QCOMPARE(d.stored(QStringLiteral("C3")), QStringLiteral("C3|Theirs|6|2|125000|2030-06-30"));
        QCOMPARE(d.position(), QStringLiteral("Record 3 of 3"));
    }

    // Typed at their lengths and saved: the boxes keep whole characters, and what they show is
    // what is stored (a whole emoji in the description's last two units, then one unit over).
    void typedAtTheLimits_data() {
        QTest::addColumn<int>("spare");
        QTest::newRow("emoji as the last character") << 2;
        QTest::newRow("emoji one unit over") << 1;
    }
    void typedAtTheLimits() {
        QFETCH(int, spare);
        Desk d;
        d.press(ItemForm::AddItem);
        const QString code(25, QLatin1Char('C'));
        const QString typed = test::edgeText(QStringLiteral("\u00df"), QStringLiteral("\U0001F600"), 55, spare);
        const QStringList values{code + QLatin1Char('X'), typed, "9999", "9999", "9,999.99", "31/12/2030"};
        for (int i = 0; i < values.size(); ++i)
            d.type(i, values[i]);
        const QString kept = test::keptOf(typed, 55);
        QCOMPARE(d.box(1)->text(), kept);
        d.press(ItemForm::Save);
        QVERIFY2(d.prompter().messages.isEmpty(), qPrintable(d.prompter().lastText()));
        QCOMPARE(d.stored(code), QStringList({code, kept, "9999", "9999", "99999900", "2030-12-31"}).join('|'));
    }

    void closeBoxIsCancelWhileAddingAndExitOtherwise() {
        Desk d({QStringLiteral("A1")});
        d.press(ItemForm::AddItem);
        d.form->parentWidget()->close();
        QTRY_COMPARE(d.position(), QStringLiteral("Record 1 of 1"));
        QVERIFY(d.form);
        d.form->parentWidget()->close();
        QTRY_VERIFY(d.form.isNull());
        QCOMPARE(d.ctx().OpenWindowCount, 0);
        QCOMPARE(d.menus(), MenuMasks::VendorOpen.left(18));
    }

    void exitRevaluesOpenOrdersEvenWithoutChanges() {
        Desk d({QStringLiteral("A1")});
        // An entered order priced before the catalogue's last change.
        QVERIFY(Sql::run(d.ctx().vendorDb(),
                         QStringLiteral("INSERT INTO orderhead (orderid, orderdate, status, totalval) VALUES "
                                        "('ABC1000001', '2026-01-01', 'E', 20000)")));
        QVERIFY(Sql::run(d.ctx().vendorDb(),
                         QStringLiteral("INSERT INTO orderline (orderid, line, code, linedate, status, qty, price, "
                                        "lineval, recvqty) VALUES ('ABC1000001', 1, 'A1', '2026-01-01', 'E', 2, "
                                        "10000, 20000, 0)")));
        d.press(ItemForm::Exit);
        QTRY_VERIFY(d.form.isNull());
        QCOMPARE(d.prompter().texts(), QStringList{"1 order value has been updated"});
        QCOMPARE(Sql::scalar(d.ctx().vendorDb(), QStringLiteral("SELECT totalval FROM orderhead"))->toLongLong(),
                 250000);
        QCOMPARE(d.menus(), MenuMasks::VendorOpen.left(18));
        QCOMPARE(d.ctx().OpenWindowCount, 0);
    }
};

QTEST_MAIN(TestItemForm)
#include "tst_itemform.moc"
