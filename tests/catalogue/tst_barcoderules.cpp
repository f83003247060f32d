#include "CatalogueSession.h"
#include "catalogue/BarcodeRules.h"
#include "catalogue/BarcodeRulesForm.h"

#include <QApplication>
#include <QLabel>
#include <QLineEdit>
#include <QMdiArea>
#include <QPushButton>
#include <QTableWidget>
#include <QTest>

using namespace ordwell;

namespace {

const QString Duplicate =
    QStringLiteral("This barcode prefix has already been used, please enter a new barcode prefix");
const QString BadFirst = QStringLiteral("Please enter a valid number of charaters to skip");
const QString BadLast =
    QStringLiteral("You have entered an invalid number, please enter a valid number of charaters to skip");

// The barcode rules window opened from the menu over the given rules (prefix, status).
class Rules {
public:
    explicit Rules(const QList<QPair<QString, QString>>& rules = {}) {
        for (const auto& r : rules)
            Sql::run(
                s.db(),
                QStringLiteral("INSERT INTO barcodes (codestart, skipfirst, skiplast, status) VALUES (?, 1, 2, ?)"),
                {r.first, r.second});
        s.window->triggerMenu(QStringLiteral("mnubarcodes"));
        form = s.window->findChild<BarcodeRulesForm*>(QStringLiteral("frmbarcodes"));
    }
    QTableWidget* grid() { return test::child<QTableWidget>(form, QStringLiteral("MSFlexGrid")); }
    QLineEdit* box(int i) { return test::child<QLineEdit>(form, QStringLiteral("txtinfo_%1").arg(i)); }
    QPushButton* button(int i) { return test::child<QPushButton>(form, QStringLiteral("cmdbutton_%1").arg(i)); }
    QString cell(int row, int column) {
        const QTableWidgetItem* item = grid()->item(row, column);
        return item ? item->text() : QString();
    }
    QColor colour(int row, int column) { return grid()->item(row, column)->background().color(); }
    QString row(int r) { return QStringList{cell(r, 0), cell(r, 1), cell(r, 2), cell(r, 3), cell(r, 4)}.join('|'); }
    void doubleClick(int row) {
        grid()->scrollToItem(grid()->item(row, 1));
        const QPoint at = grid()->visualItemRect(grid()->item(row, 1)).center();
        QTest::mouseClick(grid()->viewport(), Qt::LeftButton, {}, at);
        QTest::mouseDClick(grid()->viewport(), Qt::LeftButton, {}, at);
    }
    void enter(const QString& prefix, const QString& first, const QString& last) {
        box(0)->setText(prefix);
        box(1)->setText(first);
        box(2)->setText(last);
    }
    QStringList stored() {
        auto q = Sql::exec(s.db(), QStringLiteral("SELECT codenum || '|' || codestart || '|' || skipfirst || '|' || "
                                                  "skiplast || '|' || status FROM barcodes ORDER BY codenum"));
        QStringList out;
        while (q.value().next())
            out << q.value().value(0).toString();
        return out;
    }

    test::CatalogueSession s;
    BarcodeRulesForm* form = nullptr;
};

} // namespace

class TestBarcodeRules : public test::StrictTest {
    Q_OBJECT
private slots:
    void initTestCase() { test::initTestEnvironment(); }

    // Active rules first, each with its number, white; deactivated ones red; row 0 unused;
    // a double-click switches a rule and its colours both ways; Exit gives the menus back.
    void gridOrderColoursAndToggling() {
        Rules r({{"D1", "D"}, {"A1", "A"}, {"A2", "A"}});
        QVERIFY(r.form);
        QVERIFY(!r.s.enabled(QStringLiteral("mnubarcodes")));
        QCOMPARE(r.row(0), QStringLiteral("||||"));
        QCOMPARE(r.row(1), QStringLiteral("1|A1|1|2|Active"));
        QCOMPARE(r.row(2), QStringLiteral("2|A2|1|2|Active"));
        QCOMPARE(r.row(3), QStringLiteral("3|D1|1|2|Deactivated"));
        QCOMPARE(r.row(4), QStringLiteral("4||||"));
        QCOMPARE(r.grid()->rowCount(), 100);
        QCOMPARE(r.colour(1, 4), QColor(255, 255, 255));
        QCOMPARE(r.colour(3, 1), QColor(255, 0, 0));

        r.doubleClick(2);
        QCOMPARE(r.cell(2, 4), QStringLiteral("Deactivated"));
        for (int c = 0; c < 5; ++c)
            QCOMPARE(r.colour(2, c), QColor(255, 0, 0));
        QCOMPARE(r.stored()[2], QStringLiteral("3|A2|1|2|D"));
        r.doubleClick(2);
        QCOMPARE(r.cell(2, 4), QStringLiteral("Active"));
        QCOMPARE(r.colour(2, 0), QColor(255, 255, 255));
        QCOMPARE(r.stored()[2], QStringLiteral("3|A2|1|2|A"));
        QVERIFY(r.s.prompter().messages.isEmpty());

        QPointer<BarcodeRulesForm> watch(r.form);
        r.button(BarcodeRulesForm::ExitButton)->click();
        QTRY_VERIFY(!watch);
        QVERIFY(r.s.enabled(QStringLiteral("mnubarcodes")));
    }

    // Adding: capitals stored, an apostrophe is just a character, the row follows the last one;
    // a prefix that any rule has (a deactivated one too) is refused, in any case of letters.
    void addingAndDuplicates() {
        Rules r(QList<QPair<QString, QString>>{{"OLD", "D"}});
        r.enter(QStringLiteral("o'b9"), QStringLiteral("2"), QStringLiteral("0"));
        r.button(BarcodeRulesForm::AddButton)->click();
        QVERIFY(r.s.prompter().messages.isEmpty());
        QCOMPARE(r.row(2), QStringLiteral("2|O'B9|2|0|Active"));
        QCOMPARE(r.stored(), (QStringList{"1|OLD|1|2|D", "2|O'B9|2|0|A"}));
        QVERIFY(r.box(0)->text().isEmpty() && r.box(1)->text().isEmpty() && r.box(2)->text().isEmpty());

        // The apostrophe prefix toggles like any other.
        r.doubleClick(2);
        QCOMPARE(r.stored()[1], QStringLiteral("2|O'B9|2|0|D"));

        for (const QString& again : {QStringLiteral("old"), QStringLiteral("O'B9")}) {
            r.s.prompter().clear();
            r.enter(again, QStringLiteral("1"), QStringLiteral("1"));
            r.button(BarcodeRulesForm::AddButton)->click();
            QCOMPARE(r.s.prompter().texts(), QStringList{Duplicate});
            QCOMPARE(r.s.prompter().messages[0].title, QStringLiteral("Duplicate detected"));
            QCOMPARE(r.s.prompter().messages[0].icon, MessageIcon::Exclamation);
            QCOMPARE(r.stored().size(), 2);
        }
    }

    // Edit, then a double-click loads the row; saving makes it active under its new prefix even
    // when another rule has that prefix. Add in Edit mode before choosing a rule saves nothing.
    void editingSkipsTheDuplicateCheck() {
        Rules r({{"AAA", "A"}, {"BBB", "D"}});
        r.button(BarcodeRulesForm::EditButton)->click();
        QCOMPARE(r.s.prompter().texts(), QStringList{QStringLiteral("Please select a barcode rule to edit")});
        QCOMPARE(r.s.prompter().messages[0].title, QStringLiteral("Double click a code"));
        QCOMPARE(r.s.prompter().messages[0].icon, MessageIcon::Information);

        r.s.prompter().clear();
        r.enter(QStringLiteral("CCC"), QStringLiteral("1"), QStringLiteral("1"));
        r.button(BarcodeRulesForm::AddButton)->click();
        QCOMPARE(r.s.prompter().texts(), QStringList{QStringLiteral("Please select a barcode rule to edit")});
        QCOMPARE(r.stored().size(), 2);

        r.s.prompter().clear();
        r.doubleClick(2);
        QCOMPARE(r.stored()[1], QStringLiteral("2|BBB|1|2|D")); // loaded, not switched
        QCOMPARE(QStringList({r.box(0)->text(), r.box(1)->text(), r.box(2)->text()}), QStringList({"BBB", "1", "2"}));
        r.enter(QStringLiteral("aaa"), QStringLiteral("3"), QStringLiteral("4"));
        r.button(BarcodeRulesForm::AddButton)->click();
        QVERIFY(r.s.prompter().messages.isEmpty());
        QCOMPARE(r.stored(), (QStringList{"1|AAA|1|2|A", "2|AAA|3|4|A"}));
        QCOMPARE(r.row(2), QStringLiteral("2|AAA|3|4|Active"));
        QCOMPARE(r.colour(2, 1), QColor(255, 255, 255));
        QVERIFY(!r.form->isEditingRule());

        // Back to switching; a prefix two rules share switches neither.
        r.doubleClick(1);
        QCOMPARE(r.stored(), (QStringList{"1|AAA|1|2|A", "2|AAA|3|4|A"}));
        QCOMPARE(r.cell(1, 4), QStringLiteral("Active"));

        // Someone else changes the rule being edited here: this save is refused, and the list
        // shows what they stored.
        r.s.prompter().expect(QStringLiteral("Please select a barcode rule to edit"));
        r.button(BarcodeRulesForm::EditButton)->click();
        r.doubleClick(2);
        QVERIFY(Sql::run(r.s.db(), QStringLiteral("UPDATE barcodes SET skipfirst = 9 WHERE codenum = 2")));
        r.enter(QStringLiteral("ZZZ"), QStringLiteral("0"), QStringLiteral("0"));
        r.s.prompter().expect(BarcodeRules::ChangedElsewhereText);
        r.button(BarcodeRulesForm::AddButton)->click();
        QCOMPARE(r.stored()[1], QStringLiteral("2|AAA|9|4|A"));
        QCOMPARE(r.row(2), QStringLiteral("2|AAA|9|4|Active"));
    }

    // Past 99 rules the grid grows, numbering its rows, active rules first; the row written last
    // is scrolled into view with eight rows above it and switches like any other; every value the
    // window shows reaches a screen reader.
    void moreRulesThanRows() {
        QList<QPair<QString, QString>> many;
        for (int i = 1; i <= 120; ++i)
            many.append({QStringLiteral("P%1").arg(i, 3, 10, QLatin1Char('0')), i % 2 ? "A" : "D"});
        Rules r(many);
        QCOMPARE(r.row(60), QStringLiteral("60|P119|1|2|Active"));
        QCOMPARE(r.row(120), QStringLiteral("120|P120|1|2|Deactivated"));
        r.enter(QStringLiteral("new"), QStringLiteral("0"), QStringLiteral("0"));
        r.button(BarcodeRulesForm::AddButton)->click();
        QVERIFY(r.s.prompter().messages.isEmpty());
        QCOMPARE(r.row(121), QStringLiteral("121|NEW|0|0|Active"));
        QCOMPARE(r.grid()->rowCount(), 122);
        QCOMPARE(r.grid()->rowAt(0), 121 - 8);
        QCOMPARE(test::labelsHidingTheirText(r.form), QStringList());
        r.doubleClick(121);
        QCOMPARE(r.cell(121, 4), QStringLiteral("Deactivated"));
    }

    void entryChecks_data() {
        QTest::addColumn<QString>("prefix");
        QTest::addColumn<QString>("first");
        QTest::addColumn<QString>("last");
        QTest::addColumn<int>("box"); // the box refused and focused, -1 when the rule is stored
        QTest::addColumn<QString>("message");
        const auto row = [](const char* tag, const char* prefix, const char* first, const char* last, int box,
                            const QString& message) {
            QTest::newRow(tag) << QString::fromLatin1(prefix) << QString::fromLatin1(first) << QString::fromLatin1(last)
                               << box << message;
        };
        row("no prefix", "", "1", "1", 0, QStringLiteral("Please enter a valid barcode value"));
        row("first -1", "P", "-1", "1", 1, BadFirst);
        row("first 1.5", "P", "1.5", "1", 1, BadFirst);
        row("first empty", "P", "", "1", 1, BadFirst);
        row("last -1", "P", "1", "-1", 2, BadLast);
        row("good 0 and 99", "P", "0", "99", -1, QString());
    }
    void entryChecks() {
        QFETCH(QString, prefix);
        QFETCH(QString, first);
        QFETCH(QString, last);
        QFETCH(int, box);
        QFETCH(QString, message);
        Rules r;
        r.s.window->activateWindow();
        r.enter(prefix, first, last);
        r.button(BarcodeRulesForm::AddButton)->click();
        if (box < 0) {
            QVERIFY(r.s.prompter().messages.isEmpty());
            QCOMPARE(r.stored(), QStringList{QStringLiteral("1|P|0|99|A")});
            return;
        }
        QCOMPARE(r.s.prompter().texts(), QStringList{message});
        QCOMPARE(r.s.prompter().messages[0].title, box ? "Invalid data" : "Invalid value");
        QCOMPARE(r.s.prompter().messages[0].icon, MessageIcon::Exclamation);
        QCOMPARE(r.form->focusWidget(), r.box(box));
        QVERIFY(r.stored().isEmpty());
    }

    // Enter moves through the boxes, upper-casing the prefix and refusing a bad count.
    void enterKeys() {
        Rules r;
        r.s.window->activateWindow();
        r.box(0)->setFocus();
        r.box(0)->setText(QStringLiteral("ab"));
        test::pressEnter(r.box(0));
        QCOMPARE(r.box(0)->text(), QStringLiteral("AB"));
        QCOMPARE(r.form->focusWidget(), r.box(1));
        r.box(1)->setText(QStringLiteral("-1"));
        test::pressEnter(r.box(1));
        QCOMPARE(r.s.prompter().texts(), QStringList{BadFirst});
        QCOMPARE(r.s.prompter().messages[0].title, QStringLiteral("Invalid data"));
        r.box(1)->setText(QStringLiteral("3"));
        test::pressEnter(r.box(1));
        QCOMPARE(r.form->focusWidget(), r.box(2));
        r.box(2)->setText(QStringLiteral("7"));
        test::pressEnter(r.box(2));
        QCOMPARE(r.form->focusWidget(), r.button(BarcodeRulesForm::AddButton));
        // The next Enter presses the focused Add.
        QTest::keyClick(r.button(BarcodeRulesForm::AddButton), Qt::Key_Return);
        QCOMPARE(r.stored(), QStringList{"1|AB|3|7|A"});
        r.box(0)->clear();
        r.s.prompter().clear();
        test::pressEnter(r.box(0));
        QCOMPARE(r.s.prompter().messages[0].title, QStringLiteral("Invalid Data"));
    }

    // The tester shows which rule turned a sample into which item code, and how GS1 data reads.
    void theTesterShowsWhatASampleGives() {
        Rules r;
        r.enter(QStringLiteral("99"), QStringLiteral("2"), QStringLiteral("1"));
        r.button(BarcodeRulesForm::AddButton)->click();
        r.s.addItem(QStringLiteral("12345"), QStringLiteral("Widget"));
        auto* sample = test::child<QLineEdit>(r.form, QStringLiteral("txtscantest"));
        auto* result = test::child<QLabel>(r.form, QStringLiteral("lblscanresult"));
        QCOMPARE(test::child<QLabel>(r.form, QStringLiteral("lblscantest"))->buddy(), sample);

        auto tryIt = [&](const QString& text) {
            sample->setText(text);
            test::pressEnter(sample);
            return result->text().split(QLatin1Char('\n'));
        };
        QCOMPARE(tryIt(QStringLiteral("9912345x")),
                 QStringList({QStringLiteral("Rule \"99\" (skip first 2, skip last 1): 9912345X becomes 12345."),
                              QStringLiteral("Item code 12345: Widget.")}));
        QCOMPARE(tryIt(QStringLiteral("12345")), QStringList{QStringLiteral("Item code 12345: Widget.")});
        QCOMPARE(test::labelsHidingTheirText(r.form), QStringList());
        QCOMPARE(tryIt(QStringLiteral("4006381333932")).first(),
                 QStringLiteral("Refused: The check digit of 4006381333932 is wrong: the barcode was misread."));
        // An all-digit vendor code is no misread when it finds its item.
        r.s.addItem(QStringLiteral("40063813"), QStringLiteral("Pens"));
        QCOMPARE(tryIt(QStringLiteral("40063813")), QStringList{QStringLiteral("Item code 40063813: Pens.")});
        // Typed as a scanner types it, the group separator as Ctrl+].
        sample->clear();
        QTest::keyClicks(sample, QStringLiteral("]C1000950110100000000180209501101530003371"));
        QTest::keyClick(sample, Qt::Key_BracketRight, Qt::ControlModifier);
        QTest::keyClicks(sample, QStringLiteral("10ABC17261231"));
        QTest::keyClick(sample, Qt::Key_Return);
        const QStringList lines = result->text().split(QLatin1Char('\n'));
        QCOMPARE(lines.mid(0, 2),
                 QStringList(
                     {QStringLiteral("GS1 data: (00) 095011010000000018 (02) 09501101530003 (37) 1 (10) ABC17261231"),
                      QStringLiteral("GTIN 09501101530003, quantity 1.")}));
        QVERIFY2(lines.value(2).startsWith(QStringLiteral("Warning: (10) ABC17261231 ends in")),
                 qPrintable(lines.value(2)));
    }
};

QTEST_MAIN(TestBarcodeRules)
#include "tst_barcoderules.moc"
