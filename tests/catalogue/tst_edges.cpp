// Catalogue values at the edges: codes, descriptions, quantities and prices at the longest
// and largest their columns take and one past, in any script, through the import and through
// the item window.
#include "CatalogueSession.h"
#include "VendorFixture.h"
#include "catalogue/ItemChecks.h"
#include "catalogue/ItemForm.h"
#include "catalogue/ItemImporter.h"
#include "support/EdgeText.h"

#include <QLineEdit>
#include <QPushButton>
#include <QStringEncoder>
#include <QTest>

using namespace ordwell;

namespace {

const QDate Today(2026, 3, 15);
const QString Emoji = QStringLiteral("\U0001F600");

} // namespace

class TestCatalogueEdges : public test::StrictTest {
    Q_OBJECT
private slots:
    void initTestCase() { test::initTestEnvironment(); }

    // One line of a UTF-8 (or UTF-16) price list: stored exactly as written, or the import
    // stops on it and nothing of it is stored. Numbers one past their lengths are tst_import's
    // padded rows.
    void importLineAtTheEdges_data() {
        QTest::addColumn<QString>("line");
        QTest::addColumn<bool>("utf16");
        QTest::addColumn<bool>("stored");
        const QString rest = QStringLiteral(",1,1,2.50,31/12/2030");
        const QString code25(25, QLatin1Char('Z'));
        QTest::newRow("code of 25") << code25 + QStringLiteral(",Bolt") + rest << false << true;
        QTest::newRow("code of 26") << code25 + QStringLiteral("Z,Bolt") + rest << false << false;
        QTest::newRow("accented code") << QStringLiteral("CAF\u00c91,Bolt") + rest << false << false;
        QTest::newRow("55 CJK, UTF-16 file")
            << QStringLiteral("A1,") + test::edgeText(QStringLiteral("\u6f22"), {}, 55, 0) + rest << true << true;
        QTest::newRow("emoji ends at 55")
            << QStringLiteral("A1,") + test::edgeText(QStringLiteral("\u00df"), Emoji, 55, 2) + rest << false << true;
        QTest::newRow("emoji one unit over")
            << QStringLiteral("A1,") + test::edgeText(QStringLiteral("\u00df"), Emoji, 55, 1) + rest << false << false;
        QTest::newRow("quotes, backslash, tab") << QStringLiteral("A1,\"Bolt\" 3\\4\tM8") + rest << false << true;
        QTest::newRow("largest quantities") << QStringLiteral("A1,Bolt,99999,99999,2.50,31/12/2030") << false << true;
        QTest::newRow("price of eight") << QStringLiteral("A1,Bolt,1,1,99999.99,31/12/2030") << false << true;
    }
    void importLineAtTheEdges() {
        QFETCH(QString, line);
        QFETCH(bool, utf16);
        QFETCH(bool, stored);
        test::VendorFixture v;
        const QString path = v.folders().desktopDir() + QStringLiteral("/list.csv");
        QStringEncoder encoder(utf16 ? QStringEncoder::Utf16LE : QStringEncoder::Utf8,
                               utf16 ? QStringEncoder::Flag::WriteBom : QStringEncoder::Flag::Default);
        QVERIFY(test::writeFile(path, QByteArray(encoder(line + QStringLiteral("\r\n")))));

        const ImportOutcome outcome = ItemImporter(v.db(), Today, QLocale()).importFile(path);
        const QStringList fields = line.split(QLatin1Char(','));
        if (!stored) {
            QCOMPARE(outcome.stop, ImportOutcome::Stop::IncorrectLine);
            QCOMPARE(v.count(QStringLiteral("items")), 0);
            return;
        }
        QVERIFY2(outcome.completed(), qPrintable(outcome.message));
        auto q = Sql::exec(v.db(), QStringLiteral("SELECT code, descr, packqty, defqty, price FROM items"));
        QVERIFY(q && q.value().next());
        QCOMPARE(q->value(0).toString(), fields[0]);
        QCOMPARE(q->value(1).toString(), fields[1]);
        QCOMPARE(q->value(2).toInt(), fields[2].toInt());
        QCOMPARE(q->value(3).toInt(), fields[3].toInt());
        QCOMPARE(q->value(4).toLongLong(), test::VendorFixture::units(fields[4]));
    }

    // Typed into the item window and saved: the boxes keep whole characters up to their
    // lengths, and what they show is what is stored.
    void itemWindowTexts_data() {
        QTest::addColumn<QString>("fill");
        QTest::addColumn<QString>("last");
        QTest::addColumn<int>("spare");
        QTest::newRow("emoji as the last character") << QStringLiteral("\u00df") << Emoji << 2;
        QTest::newRow("emoji one unit over") << QStringLiteral("\u00df") << Emoji << 1;
    }
    void itemWindowTexts() {
        QFETCH(QString, fill);
        QFETCH(QString, last);
        QFETCH(int, spare);
        test::CatalogueSession s;
        s.window->triggerMenu(QStringLiteral("mnueditms"));
        auto* form = s.window->findChild<ItemForm*>(QStringLiteral("frmaddedititem"));
        QVERIFY(form);
        form->setToday(Today);
        auto box = [form](int i) { return test::child<QLineEdit>(form, QStringLiteral("txtbox_%1").arg(i)); };
        auto press = [form](int i) {
            QTest::mouseClick(test::child<QPushButton>(form, QStringLiteral("cmdbutton_%1").arg(i)), Qt::LeftButton);
        };

        press(ItemForm::AddItem);
        const QString code(25, QLatin1Char('C'));
        const int length = ItemChecks::InputLimits[ItemChecks::Description];
        const QString typed = test::edgeText(fill, last, length, spare);
        const QStringList values{code + QLatin1Char('X'),    typed,
                                 QStringLiteral("9999"),     QStringLiteral("9999"),
                                 QStringLiteral("9,999.99"), QStringLiteral("31/12/2030")};
        for (int i = 0; i < values.size(); ++i) {
            box(i)->setFocus();
            box(i)->selectAll();
            test::typeText(box(i), values[i]);
        }
        const QString kept = test::keptOf(typed, length);
        QCOMPARE(box(0)->text(), code);
        QCOMPARE(box(1)->text(), kept);
        press(ItemForm::Save);
        QVERIFY2(s.prompter().messages.isEmpty(), qPrintable(s.prompter().lastText()));

        auto q = Sql::exec(s.db(), QStringLiteral("SELECT code, descr, packqty, defqty, price FROM items"));
        QVERIFY(q && q.value().next());
        QCOMPARE(q->value(0).toString(), code);
        QCOMPARE(q->value(1).toString(), kept);
        QVERIFY(test::wholeCharacters(q->value(1).toString()));
        QCOMPARE(q->value(2).toInt(), 9999);
        QCOMPARE(q->value(3).toInt(), 9999);
        QCOMPARE(q->value(4).toLongLong(), qint64(99999900));
    }
};

QTEST_MAIN(TestCatalogueEdges)
#include "tst_edges.moc"
