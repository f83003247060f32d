#include "app/VendorSession.h"
#include "catalogue/ItemBrowser.h"
#include "catalogue/ItemChecks.h"
#include "common/Sql.h"
#include "store/Store.h"
#include "support/TestSupport.h"

#include <QTest>

using namespace ordwell;
using ItemChecks::Box;

namespace {

const QDate Today(2026, 3, 15);

QStringList boxes(const QString& code, const QString& descr = QStringLiteral("Apple"),
                  const QString& pack = QStringLiteral("6"), const QString& qty = QStringLiteral("1"),
                  const QString& price = QStringLiteral("12.50"), const QString& expiry = QStringLiteral("16/03/2026"),
                  const QString& gtin = QString()) {
    return {code, descr, pack, qty, price, expiry, gtin};
}

// The vendor ABC's catalogue, empty and open.
QSqlDatabase openVendor(test::TestContext& tc) {
    if (!Store::CreateVendorDatabase(tc.context().store(), QStringLiteral("ABC")) ||
        !tc.context().vendorSession().open(QStringLiteral("ABC"), QStringLiteral("Acme")))
        qFatal("cannot open the vendor");
    return tc.context().vendorDb();
}

Item item(const QString& code, const QString& descr = QStringLiteral("Thing")) {
    return Item{code, descr, 6, 2, Money::fromPence(1250), QDate(2027, 1, 31), {}, {}};
}

} // namespace

class TestItemCore : public test::StrictTest {
    Q_OBJECT
private slots:
    void initTestCase() { test::initTestEnvironment(); }

    // Save checks: the first failing box in field order wins, whatever fails after it.
    void saveChecksInOrder_data() {
        QTest::addColumn<QStringList>("typed");
        QTest::addColumn<int>("box");
        QTest::addColumn<QString>("title");
        QTest::addColumn<QString>("after"); // the failing box's text afterwards
        const auto row = [](const char* tag, const QStringList& typed, Box box, const char* title, const char* after) {
            QTest::newRow(tag) << typed << int(box) << QString::fromLatin1(title) << QString::fromUtf8(after);
        };
        row("no code, no price", boxes("", "", "", "", "x", ""), ItemChecks::Code, "No Item code", "");
        row("space in code", boxes("AB 12", ""), ItemChecks::Code, "Illegal character used", "AB 12");
        row("no description", boxes("A1", "", "x"), ItemChecks::Description, "No item description", "");
        row("pack 1.5", boxes("A1", "Apple", "1.5", "x"), ItemChecks::PackQty, "Incorrect pack quantity", "1.5");
        row("default empty", boxes("A1", "Apple", "6", ""), ItemChecks::DefaultQty, "Incorrect default order quantity",
            "");
        row("default -1", boxes("A1", "Apple", "6", "-1"), ItemChecks::DefaultQty, "Incorrect default order quantity",
            "-1");
        row("price letter", boxes("A1", "Apple", "6", "1", "12.5O", ""), ItemChecks::Price, "No price defined", "");
        row("expiry not a date", boxes("A1", "Apple", "6", "1", "1", "31/02/2026"), ItemChecks::PriceExpiry,
            "Invalid date", "31/02/2026");
        row("expiry yesterday", boxes("A1", "Apple", "6", "1", "1", "14/03/2026"), ItemChecks::PriceExpiry,
            "Invalid date", "");
        row("GTIN check digit", boxes("A1", "Apple", "6", "1", "1", "16/03/2026", "4006381333932"), ItemChecks::Gtin,
            "Invalid GTIN", "4006381333932");
        row("GTIN of 11 digits", boxes("A1", "Apple", "6", "1", "1", "16/03/2026", "01234567890"), ItemChecks::Gtin,
            "Invalid GTIN", "01234567890");
    }
    void saveChecksInOrder() {
        QFETCH(QStringList, typed);
        QFETCH(int, box);
        QFETCH(QString, title);
        QFETCH(QString, after);
        const auto refusal = ItemChecks::ValidateItem(typed, Today);
        QVERIFY(refusal);
        QCOMPARE(int(refusal->box), box);
        QCOMPARE(refusal->title, title);
        QCOMPARE(typed.at(box), after);
        QCOMPARE(refusal->emptiesBox, after.isEmpty() && box >= ItemChecks::Price);
    }

    void savePassesAndUpperCases_data() {
        QTest::addColumn<QStringList>("typed");
        QTest::addColumn<Item>("expected");
        QTest::newRow("ab12, expiry today") << boxes("ab12", "Apple's", "6", "1", "12.50", "15/03/2026")
                                            << Item{"AB12", "Apple's", 6, 1, Money::fromPence(1250), Today, {}, {}};
        QTest::newRow("grouped price") << boxes("Z9", "Zest", "0", "9999", "1,234.5", "01/01/2030")
                                       << Item{"Z9", "Zest", 0, 9999, Money::fromPence(123450), QDate(2030, 1, 1),
                                               {},   {}};
        QTest::newRow("EAN-8 kept as 14 digits")
            << boxes("E8", "Eight", "1", "1", "1", "01/01/2030", " 12345670 ")
            << Item{"E8", "Eight", 1, 1, Money::fromPence(100), QDate(2030, 1, 1), "00000012345670", {}};
        QTest::newRow("UPC-A") << boxes("U1", "Upc", "1", "1", "1", "01/01/2030", "036000291452")
                               << Item{"U1", "Upc", 1, 1, Money::fromPence(100), QDate(2030, 1, 1), "00036000291452",
                                       {}};
    }
    void savePassesAndUpperCases() {
        QFETCH(QStringList, typed);
        QFETCH(Item, expected);
        QVERIFY(!ItemChecks::ValidateItem(typed, Today));
        QCOMPARE(typed.first(), expected.code);
        QVERIFY(ItemChecks::itemFrom(typed) == expected);
    }

    // Whatever the regional formats, what the boxes show for a stored item fits them and reads
    // back as the same item.
    void boxesFitInEveryLocale_data() {
        QTest::addColumn<QLocale>("locale");
        QTest::newRow("en_GB") << QLocale(QLocale::English, QLocale::UnitedKingdom);
        QTest::newRow("C") << QLocale::c();
        QTest::newRow("de_DE") << QLocale(QLocale::German, QLocale::Germany);
        QTest::newRow("en_US") << QLocale(QLocale::English, QLocale::UnitedStates);
    }
    void boxesFitInEveryLocale() {
        QFETCH(QLocale, locale);
        const Item stored{"Z9", "Zest", 9999, 12, Money::fromPence(999999), QDate(2027, 12, 23), "00000012345670", {}};
        const QStringList shown = ItemChecks::boxesFor(stored, locale);
        for (int i = 0; i < ItemChecks::BoxCount; ++i)
            QVERIFY2(shown.at(i).size() <= ItemChecks::InputLimits[i], qPrintable(shown.at(i)));
        QStringList checked = shown;
        QVERIFY(!ItemChecks::ValidateItem(checked, Today, locale));
        QVERIFY(ItemChecks::itemFrom(checked, locale) == stored);
    }

    // Enter in each box: where it goes, what it rewrites, what it says.
    void enterTable_data() {
        QTest::addColumn<int>("box");
        QTest::addColumn<QString>("typed");
        QTest::addColumn<bool>("moveOn");
        QTest::addColumn<QString>("rewritten");
        QTest::addColumn<QString>("title");
        const auto row = [](const char* tag, Box box, const char* typed, bool moveOn, const char* rewritten,
                            const char* title = "") {
            QTest::newRow(tag) << int(box) << QString::fromLatin1(typed) << moveOn << QString::fromLatin1(rewritten)
                               << QString::fromLatin1(title);
        };
        row("code lower", ItemChecks::Code, "ab12", true, "AB12");
        row("code taken", ItemChecks::Code, "taken1", false, "TAKEN1", "Duplicate Item Code");
        row("code space", ItemChecks::Code, "a b", false, "A B", "Illegal character used");
        row("descr empty", ItemChecks::Description, "", false, "");
        row("pack text", ItemChecks::PackQty, "six", false, "six");
        row("default ok", ItemChecks::DefaultQty, "12", true, "12");
        row("price 12.5", ItemChecks::Price, "12.5", true, "12.50");
        row("price 1234", ItemChecks::Price, "1234", true, "1,234.00");
        row("price too wide to group", ItemChecks::Price, "99999", true, "99999.00");
        row("price empty", ItemChecks::Price, "", false, "");
        row("expiry today", ItemChecks::PriceExpiry, "15/03/2026", false, "", "Invalid date");
        row("expiry tomorrow", ItemChecks::PriceExpiry, "16/03/2026", true, "16/03/2026");
        row("expiry garbage", ItemChecks::PriceExpiry, "soon", false, "", "Invalid date");
    }
    void enterTable() {
        QFETCH(int, box);
        QFETCH(QString, typed);
        QFETCH(bool, moveOn);
        QFETCH(QString, rewritten);
        QFETCH(QString, title);
        const auto exists = [](const QString& code) { return Result<bool>(code == QLatin1String("TAKEN1")); };
        const auto outcome = ItemChecks::enterPressed(Box(box), typed, Today, exists);
        QCOMPARE(outcome.moveOn, moveOn);
        QCOMPARE(outcome.refusal.has_value(), !title.isEmpty());
        if (outcome.refusal)
            QCOMPARE(outcome.refusal->title, title);
        if (moveOn || box == ItemChecks::Code)
            QCOMPARE(outcome.rewritten, rewritten);
    }

    // A product barcode finds its item; two items never share one, while any number have none.
    void gtinIsFoundAndNeverShared() {
        test::TestContext tc;
        ItemRepository items(openVendor(tc));
        Item first = item(QStringLiteral("P1"));
        first.gtin = QStringLiteral("04006381333931");
        QVERIFY(items.insert(first));
        QVERIFY(items.insert(item(QStringLiteral("N1"))));
        QVERIFY(items.insert(item(QStringLiteral("N2"))));
        QCOMPARE(items.findByGtin(QStringLiteral("04006381333931"))->value().code, QStringLiteral("P1"));
        QVERIFY(!items.findByGtin(QStringLiteral("05012345678900"))->has_value());
        Item second = item(QStringLiteral("P2"));
        second.gtin = first.gtin;
        QVERIFY(!items.insert(second));
        Item taken = item(QStringLiteral("N1"));
        taken.gtin = first.gtin;
        QVERIFY(!items.update(taken, item(QStringLiteral("N1"))));
        // Taking the barcode away stores no value, so it may be given to another item.
        const Item firstStored = first;
        first.gtin.clear();
        QVERIFY(items.update(first, firstStored));
        QVERIFY(items.update(taken, item(QStringLiteral("N1"))));
        QCOMPARE(items.find(QStringLiteral("P1"))->value().gtin, QString());
    }

    // Paging by key over a catalogue, positions from the index (the masks by position are the
    // item window's test).
    void browsesByKey() {
        test::TestContext tc;
        ItemBrowser browser(openVendor(tc));
        QVERIFY(browser.open());
        QVERIFY(!browser.current());

        // Inserted out of order, with a quote in a description.
        for (const char* code : {"C3", "A1", "E5", "B2", "D4"})
            QVERIFY(browser.add(item(QString::fromLatin1(code), QStringLiteral("O'Hara's %1").arg(code))));
        QCOMPARE(browser.count(), 5);
        // After adding, the list stands at its first row.
        QCOMPARE(browser.current()->code + QString::number(browser.position()), QStringLiteral("A11"));

        QStringList walk;
        for (int i = 0; i < 4; ++i) {
            QVERIFY(browser.next());
            walk << browser.current()->code + QLatin1Char('@') + QString::number(browser.position());
        }
        QCOMPARE(walk, (QStringList{"B2@2", "C3@3", "D4@4", "E5@5"}));
        QVERIFY(browser.previous());
        QCOMPARE(browser.current()->code + QString::number(browser.position()), QStringLiteral("D44"));
        QVERIFY(browser.first());
        QCOMPARE(browser.current()->code, QStringLiteral("A1"));
        QVERIFY(browser.last());
        QCOMPARE(browser.current()->code + QString::number(browser.position()), QStringLiteral("E55"));
        // Past the end there is nowhere to go: it stays.
        QVERIFY(!browser.next());
        QVERIFY(browser.lastError());
        QCOMPARE(browser.current()->code + QString::number(browser.position()), QStringLiteral("E55"));

        // Codes are found whatever their case; descriptions exactly.
        QCOMPARE(*browser.goTo(QStringLiteral("c3")), true);
        QCOMPARE(browser.position(), 3);
        QCOMPARE(*browser.goTo(QStringLiteral("ZZ")), false);
        QCOMPARE(browser.current()->code, QStringLiteral("C3"));
        QCOMPARE(*browser.goToDescription(QStringLiteral("O'Hara's D4")), true);
        QCOMPARE(browser.position(), 4);

        // An edit is stored and shown; an edit of a row that has gone is refused, not inserted.
        Item edited = item(QStringLiteral("B2"), QStringLiteral("Changed"));
        edited.price = Money::fromPence(99);
        QVERIFY(browser.save(edited));
        QVERIFY(browser.current() == edited);
        QCOMPARE(browser.position(), 2);
        QVERIFY(!browser.save(item(QStringLiteral("GONE"))));
        QCOMPARE(*browser.repository().count(), 5);

        // A duplicate code, in any case, is refused by the table too.
        QVERIFY(!browser.repository().insert(item(QStringLiteral("a1"))));
        QCOMPARE(ItemBrowser::navigationMask(1, 1), QStringLiteral("1000010001"));
    }
};

QTEST_GUILESS_MAIN(TestItemCore)
#include "tst_itemcore.moc"
