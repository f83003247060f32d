// Item entry on the order form: finding by description, a scanner
// whose keys arrive while earlier scans are still being stored. The vendor session's hand-over of
// a live order is the crash-safety test's, which starts the whole program again.
#include "OrderFixture.h"
#include "catalogue/Find.h"
#include "common/Sql.h"
#include "orders/OrderWords.h"

#include <QApplication>
#include <QCheckBox>
#include <QFile>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>
#include <QWindow>

using namespace ordwell;
using test::OrderSession;

class TestItemEntry : public QObject {
    Q_OBJECT
private slots:
    void initTestCase() { test::initTestEnvironment(); }
    void findByDescription_data();
    void findByDescription();
    void queuedScansLandInTheirBoxes();
    void scanProblemsAreToldNotMadeIntoItems();
};

void TestItemEntry::findByDescription_data() {
    QTest::addColumn<QString>("answer"); // empty: the user cancelled
    QTest::addColumn<QString>("code");   // the code box afterwards; empty: nothing filled
    QTest::addColumn<QString>("message");
    QTest::newRow("chosen") << QStringLiteral("Cog") << QStringLiteral("C3") << QString();
    QTest::newRow("cancelled") << QString() << QString() << QString();
    QTest::newRow("gone from the catalogue")
        << QStringLiteral("Sprocket") << QString() << QStringLiteral("Item description not found.");
}

void TestItemEntry::findByDescription() {
    QFETCH(QString, answer);
    QFETCH(QString, code);
    QFETCH(QString, message);
    OrderSession s;
    s.addItem(QStringLiteral("A1"), QStringLiteral("Widget"), QStringLiteral("1.50"));
    s.addItem(QStringLiteral("C3"), QStringLiteral("Cog"), QStringLiteral("1234.5"), 12, 4);
    OrderForm* form = s.open();
    s.startOrder();
    QString prompt;
    Find::ScriptedFind find([&](const QString& shownPrompt, const FindQuery&) -> std::optional<QString> {
        prompt = shownPrompt;
        if (answer.isEmpty())
            return std::nullopt;
        return answer;
    });
    s.click(form->ui().cmdfinditem);
    QCOMPARE(prompt, QStringLiteral("Type item description to find"));
    QCOMPARE(s.entry(0)->text(), code);
    if (!code.isEmpty()) {
        // Filled as a scanned item would be: the default quantity ready to confirm.
        QCOMPARE(s.entry(1)->text(), answer);
        QCOMPARE(s.entry(2)->text(), QStringLiteral("4"));
        QCOMPARE(s.entry(3)->text(), QStringLiteral("1,234.50"));
        QCOMPARE(s.entry(4)->text(), QStringLiteral("12"));
        QCOMPARE(QApplication::focusWidget(), s.entry(2));
        QTest::keyClick(s.entry(2), Qt::Key_Return);
        QCOMPARE(s.lines(QStringLiteral("ABC1000000")).size(), 1);
        QCOMPARE(s.header(7)->text(), QStringLiteral("4,938.00"));
    } else if (message.isEmpty()) {
        QCOMPARE(QApplication::focusWidget(), s.entry(0));
    }
    QCOMPARE(s.prompter().lastText(), message);
    if (!message.isEmpty()) {
        QCOMPARE(s.prompter().messages.last().title, QStringLiteral("Item Description Error"));
        QCOMPARE(s.prompter().messages.last().icon, MessageIcon::Critical);
    }
    // The main window still shows the vendor while the form is open.
    QVERIFY(!s.window().menuEntry(QStringLiteral("mnuNewOrd"))->isEnabled());
}

void TestItemEntry::queuedScansLandInTheirBoxes() {
    // A scanner types faster than a line is stored: every key of the session is queued before
    // the first is handled, and each must still reach the box that has the focus by then. The
    // scans mix item codes, a vendor barcode for the rules, product barcodes (EAN-13) and GS1
    // case labels whose count becomes the quantity, their separator typed as ASCII 29 or Ctrl+].
    static const char* const Gtins[] = {"5012345670003", "5012345670010", "5012345670027", "5012345670034",
                                        "5012345670041", "5012345670058", "5012345670065", "5012345670072",
                                        "5012345670089", "5012345670096"};
    OrderSession s;
    for (int i = 0; i < 10; ++i) {
        s.addItem(QStringLiteral("Q%1").arg(i), QStringLiteral("Queued %1").arg(i), QStringLiteral("0.%15").arg(i), 1,
                  1 + i % 2);
        QVERIFY(Sql::run(s.db(), QStringLiteral("UPDATE items SET gtin = ? WHERE code = ?"),
                         {QStringLiteral("0") + QLatin1String(Gtins[i]), QStringLiteral("Q%1").arg(i)}));
    }
    s.addRule(QStringLiteral("7"), 1, 2);
    s.open();
    s.startOrder();
    QWindow* window = s.window().windowHandle();
    QVERIFY(window);
    auto post = [window](Qt::Key key, const QString& text, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
        QCoreApplication::postEvent(window, new QKeyEvent(QEvent::KeyPress, key, modifiers, text));
        QCoreApplication::postEvent(window, new QKeyEvent(QEvent::KeyRelease, key, modifiers, text));
    };
    const QChar gs(0x1D);
    QMap<QString, int> expected;
    Money total;
    for (int n = 0; n < 100; ++n) {
        const int i = (n * 3) % 10;
        const QString code = QStringLiteral("Q%1").arg(i);
        const int count = 2 + n % 4; // on a case label
        const QString gtin = QLatin1String(Gtins[i]);
        const QString label = QStringLiteral("]C1020") + gtin + QStringLiteral("37") + QString::number(count) + gs +
                              QStringLiteral("10b") + QString::number(n);
        const int kind = n % 4;
        const QString scanned = kind == 0   ? QStringLiteral("7%1CK").arg(code)
                                : kind == 1 ? code
                                : kind == 2 ? gtin
                                            : label;
        const int qty = kind == 3 ? count : 1 + i % 2;
        for (const QChar c : scanned) {
            if (c == gs && n % 8 == 3)
                post(Qt::Key_BracketRight, QString(gs), Qt::ControlModifier);
            else
                post(c == gs ? Qt::Key_unknown : Qt::Key(c.toUpper().unicode()), QString(c));
        }
        post(Qt::Key_Return, QStringLiteral("\r")); // the code
        post(Qt::Key_Return, QStringLiteral("\r")); // its quantity, as offered
        expected[code] += qty;
        total += *Money::parse(QStringLiteral("0.%15").arg(i)) * qty;
    }
    QTRY_COMPARE_WITH_TIMEOUT(s.header(7)->text(), total.toString(), 20000);
    const auto lines = s.lines(QStringLiteral("ABC1000000"));
    QCOMPARE(lines.size(), expected.size());
    for (const auto& line : lines)
        QCOMPARE(line.qty, expected.value(line.code));
    QCOMPARE(s.orderTotal(QStringLiteral("ABC1000000")), total);
    QVERIFY(s.entry(0)->text().isEmpty());
    QCOMPARE(QApplication::focusWidget(), s.entry(0));
    QVERIFY(s.prompter().messages.isEmpty());
}

void TestItemEntry::scanProblemsAreToldNotMadeIntoItems() {
    // A misread is told on the info line and the code box is ready for the next scan; a clean
    // scan brings the guidance back.
    OrderSession s;
    s.addItem(QStringLiteral("P1"), QStringLiteral("Pens"), QStringLiteral("1.00"));
    QVERIFY(Sql::run(s.db(), QStringLiteral("UPDATE items SET gtin = '05012345670003'")));
    OrderForm* form = s.open();
    form->ui().chkunknown->setChecked(true);
    s.startOrder();
    const QString guidance = form->ui().lblinfo->text();
    s.enter(s.entry(0), QStringLiteral("]C1010501234567000317261301"));
    QVERIFY2(form->ui().lblinfo->text().contains(QStringLiteral("(17)")), qPrintable(form->ui().lblinfo->text()));
    QVERIFY(s.entry(0)->text().isEmpty());
    QCOMPARE(QApplication::focusWidget(), s.entry(0));
    s.enter(s.entry(0), QStringLiteral("5012345670003"));
    QCOMPARE(s.entry(0)->text(), QStringLiteral("P1"));
    QCOMPARE(form->ui().lblinfo->text(), guidance);
    QVERIFY(s.prompter().messages.isEmpty());
}

QTEST_MAIN(TestItemEntry)
#include "tst_itementry.moc"
