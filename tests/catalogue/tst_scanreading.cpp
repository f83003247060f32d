#include "catalogue/ScanKeyFilter.h"
#include "catalogue/ScanKeys.h"
#include "catalogue/ScanReading.h"
#include "support/TestSupport.h"

#include <QLineEdit>
#include <QTest>

using namespace ordwell;

namespace {

using Kind = ScanReading::Kind;
const QDate Today(2026, 11, 24);
const QString GS(GroupSeparator);

// A scan as written in the tables, with ~ for each group separator.
QString withSeparators(const char* scan) {
    return QString::fromLatin1(scan).replace(QLatin1Char('~'), GS);
}

// A reading in one comparable line: kind, GTIN, quantity, batch, expiry, net weight.
QString summary(const ScanReading& r) {
    static const char* const kinds[] = {"plain", "gtin", "misread", "gs1", "refused"};
    return QStringLiteral("%1|%2|%3|%4|%5|%6")
        .arg(QLatin1String(kinds[int(r.kind)]), r.kind == Kind::Plain ? r.code : r.gtin,
             r.quantity ? QString::number(*r.quantity) : QString(), r.batch,
             r.expiry ? r.expiry->toString(Qt::ISODate) : QString(), r.netWeightKg);
}

} // namespace

class TestScanReading : public test::StrictTest {
    Q_OBJECT
private slots:
    void initTestCase() { test::initTestEnvironment(); }

    void reads_data() {
        QTest::addColumn<QString>("scan");
        QTest::addColumn<QString>("expected");
        const auto row = [](const char* tag, const char* scan, const char* expected) {
            QTest::newRow(tag) << withSeparators(scan) << QString::fromLatin1(expected);
        };
        // Product barcodes: right check digits are GTINs made 14 long, wrong ones misreads.
        row("EAN-13", "4006381333931", "gtin|04006381333931||||");
        row("EAN-13 misread", "4006381333932", "misread|||||");
        row("UPC-A", "036000291452", "gtin|00036000291452||||");
        row("UPC-A misread", "036000291453", "misread|||||");
        row("EAN-8", "96385074", "gtin|00000096385074||||");
        row("EAN-8 misread", "96385075", "misread|||||");
        row("GTIN-14", "09501101530003", "gtin|09501101530003||||");
        row("EAN-13 with identifier", "]E04006381333931", "gtin|04006381333931||||");
        // Other lengths and letters are codes for the rules; a non-GS1 identifier is dropped.
        row("ten digits", "1234567890", "plain|1234567890||||");
        row("vendor code", "9912345X", "plain|9912345X||||");
        row("Code 128 identifier", "]C0ABC12", "plain|ABC12||||");
        // GS1 element strings behind a symbology identifier.
        row("]C1 (01)(17)(10)", "]C101095011015300031726123110ABC123", "gs1|09501101530003||ABC123|2026-12-31|");
        row("]d2 (01)(10)GS(17)", "]d2010950110153000310LOT7~17270600", "gs1|09501101530003||LOT7|2027-06-30|");
        row("]Q3 (01)(30)", "]Q301095011015300033024", "gs1|09501101530003|24|||");
        row("]C1 (00)(02)(37)GS(10)", "]C10009501101000000001802095011015300033712~10B9", "gs1|09501101530003|12|B9||");
        row("]e0 (01)(3103)", "]e001095011015300033103001250", "gs1|09501101530003||||1.250");
        // Separators without an identifier, and a leading FNC1 left in.
        row("GS, no identifier", "~010950110153000310AB~3006", "gs1|09501101530003|6|AB||");
        row("]C1 then FNC1", "]C1~01095011015300033006", "gs1|09501101530003|6|||");
        row("written out", "(01)09501101530003(17)261231", "gs1|09501101530003|||2026-12-31|");
    }
    void reads() {
        QFETCH(QString, scan);
        QFETCH(QString, expected);
        ScanReader reader;
        const ScanReading r = reader.read(scan, Today);
        QCOMPARE(summary(r), expected);
        QCOMPARE(r.warnings, QStringList());
        QCOMPARE(r.refusal.isEmpty(), r.kind != Kind::Misread);
    }

    void refusesNamingTheField_data() {
        QTest::addColumn<QString>("scan");
        QTest::addColumn<QString>("field");
        const auto row = [](const char* tag, const char* scan, const char* field) {
            QTest::newRow(tag) << withSeparators(scan) << QString::fromLatin1(field);
        };
        row("(01) check digit", "]C1010950110153000410A", "(01)");
        row("(01) with (02)", "]C1010950110153000302095011015300033712", "(01)");
        row("(17) month 13", "]d2010950110153000317261301", "(17)");
        row("(01) too short", "]C101950110153000~3024", "(01)");
    }
    void refusesNamingTheField() {
        QFETCH(QString, scan);
        QFETCH(QString, field);
        ScanReader reader;
        const ScanReading r = reader.read(scan, Today);
        QCOMPARE(r.kind, Kind::Refused);
        QVERIFY2(r.refusal.contains(field), qPrintable(r.refusal));
    }

    void warns_data() {
        QTest::addColumn<QString>("scan");
        QTest::addColumn<QString>("warning"); // a piece of the one warning expected, or empty
        const auto row = [](const char* tag, const char* scan, const char* warning) {
            QTest::newRow(tag) << withSeparators(scan) << QString::fromLatin1(warning);
        };
        // A field missing beside another is said, not refused: what was read is still true.
        row("(02) without (37)", "]C10209501101530003", "Required AIs for AI (02)");
        row("(37) without its SSCC (00)", "]C102095011015300033712", "Required AIs for AI (37)");
        row("expired", "]C1010950110153000317140704", "(17) 04/07/2014 has passed");
        row("lost separator after (10)", "]C1010950110153000310ABC17261231",
            "(10) ABC17261231 ends in what reads as (17) 261231");
        row("lost separator, serial after", "]d2010950110153000310L11726123121XY", "reads as (17) 261231 (21) XY");
        // Digits in a batch that do not make a whole field of their own are no alarm.
        row("batch ending in a year", "]C1010950110153000310LOT2023", "");
        row("impossible date in a batch", "]C1010950110153000310A17261340", "");
    }
    void warns() {
        QFETCH(QString, scan);
        QFETCH(QString, warning);
        ScanReader reader;
        const ScanReading r = reader.read(scan, Today);
        QCOMPARE(r.kind, Kind::Gs1);
        QCOMPARE(r.warnings.size(), warning.isEmpty() ? 0 : 1);
        if (!warning.isEmpty())
            QVERIFY2(r.warnings[0].contains(warning), qPrintable(r.warnings[0]));
    }

    // The group separator as keyboard-wedge scanners type it, into a real entry box.
    void separatorKeys_data() {
        QTest::addColumn<QString>("setting");
        QTest::addColumn<int>("key");
        QTest::addColumn<int>("modifiers");
        QTest::addColumn<QString>("text");
        QTest::newRow("ASCII 29") << "" << 0 << 0 << GS;
        QTest::newRow("Ctrl+] with text") << "" << int(Qt::Key_BracketRight) << int(Qt::ControlModifier) << GS;
        QTest::newRow("Ctrl+] without text") << "" << int(Qt::Key_BracketRight) << int(Qt::ControlModifier) << "";
        QTest::newRow("substitute ^") << "^" << int(Qt::Key_AsciiCircum) << 0 << "^";
        QTest::newRow("substitute F8") << "F8" << int(Qt::Key_F8) << 0 << "";
    }
    void separatorKeys() {
        QFETCH(QString, setting);
        QFETCH(int, key);
        QFETCH(int, modifiers);
        QFETCH(QString, text);
        QLineEdit box;
        new ScanKeyFilter(&box, GroupSeparatorSubstitute::fromText(setting));
        QTest::keyClicks(&box, QStringLiteral("]C10109501101530003") + QStringLiteral("10AB"));
        QKeyEvent press(QEvent::KeyPress, key, Qt::KeyboardModifiers(modifiers), text);
        QApplication::sendEvent(&box, &press);
        QTest::keyClicks(&box, QStringLiteral("3006"));
        ScanReader reader;
        const ScanReading r = reader.read(box.text(), Today);
        QCOMPARE(summary(r), QStringLiteral("gs1|09501101530003|6|AB||"));
    }

    void substituteCharacterInText() {
        // Text pasted or typed without the key filter still reads once normalised.
        const QString scan =
            normaliseGroupSeparators(QStringLiteral("]C1010950110153000310AB^3006"), QStringLiteral("^"));
        ScanReader reader;
        QCOMPARE(summary(reader.read(scan, Today)), QStringLiteral("gs1|09501101530003|6|AB||"));
        // A key name is not a character to replace, and a plain ^ without the setting stays.
        QCOMPARE(normaliseGroupSeparators(QStringLiteral("A^B"), QStringLiteral("F8")), QStringLiteral("A^B"));
        QCOMPARE(GroupSeparatorSubstitute::fromText(QStringLiteral("F8")).key, int(Qt::Key_F8));
    }

    void burstsOfKeysAreScans() {
        qint64 now = 0;
        ScanBurst burst([&now] { return now; });
        auto type = [&](int keys, qint64 gap, qint64 enterAfter) {
            for (int i = 0; i < keys; ++i, now += gap)
                burst.key();
            now += enterAfter - gap;
            return burst.enter();
        };
        QVERIFY(type(13, 8, 8));      // an EAN-13 from a scanner
        QVERIFY(!type(13, 120, 120)); // the same typed by a quick typist
        QVERIFY(!type(2, 5, 5));      // too short to tell
        // One late key (the program busy for a moment) does not undo a scan.
        for (int i = 0; i < 6; ++i, now += 5)
            burst.key();
        now += 400;
        for (int i = 0; i < 6; ++i, now += 5)
            burst.key();
        QVERIFY(burst.enter());
        // Each Enter starts afresh: a slow entry after a scan is typing.
        QVERIFY(!type(5, 200, 200));
    }
};

QTEST_MAIN(TestScanReading)
#include "tst_scanreading.moc"
