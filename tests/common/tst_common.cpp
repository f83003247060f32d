#include "common/Dates.h"
#include "common/Money.h"
#include "common/TextChecks.h"
#include "support/TestSupport.h"

#include <QTest>

using namespace ordwell;

class TestCommon : public test::StrictTest {
    Q_OBJECT
private slots:
    void initTestCase() { test::initTestEnvironment(); }

    void upperCaseCodeTouchesOnlyAsciiLetters() {
        QCOMPARE(UpperCaseCode(QStringLiteral("abc-12 xyz")), QStringLiteral("ABC-12 XYZ"));
        QCOMPARE(UpperCaseCode(QStringLiteral("é'ß")), QStringLiteral("é'ß"));
        QCOMPARE(UpperCaseCode(QString()), QString());
    }

    void codeAndPhoneCharacterSets_data() {
        QTest::addColumn<QString>("text");
        QTest::addColumn<bool>("codeNoSpace");
        QTest::addColumn<bool>("codeWithSpace");
        QTest::addColumn<bool>("phone");
        QTest::newRow("empty") << "" << true << true << true;
        QTest::newRow("capitals and digits") << "AB12CD" << true << true << false;
        QTest::newRow("lower case") << "ab12cd" << false << false << false;
        QTest::newRow("postcode with space") << "AB1 2CD" << false << true << false;
        QTest::newRow("hyphen") << "A-C" << false << false << false;
        QTest::newRow("bracketed phone") << "(01234) 567890" << false << false << true;
        QTest::newRow("hyphenated phone") << "01234-567890" << false << false << false;
        QTest::newRow("plus sign") << "+44 1234" << false << false << false;
    }
    void codeAndPhoneCharacterSets() {
        QFETCH(QString, text);
        QFETCH(bool, codeNoSpace);
        QFETCH(bool, codeWithSpace);
        QFETCH(bool, phone);
        QCOMPARE(IsValidCode(text, false), codeNoSpace);
        QCOMPARE(IsValidCode(text, true), codeWithSpace);
        QCOMPARE(IsValidPhone(text), phone);
    }

    void moneyParsesAndRoundsExactly() {
        const QLocale gb(QLocale::English, QLocale::UnitedKingdom);
        QCOMPARE(Money::parse(QStringLiteral("1,234.5"), gb)->tenThousandths(), 12345000);
        QCOMPARE(Money::parse(QStringLiteral("-0.25"), gb)->tenThousandths(), -2500);
        QCOMPARE(Money::parse(QStringLiteral("0.00005"), gb)->tenThousandths(), 1); // half away from zero
        QCOMPARE(Money::parse(QStringLiteral("-0.00005"), gb)->tenThousandths(), -1);
        QCOMPARE(Money::parse(QStringLiteral("0.00004999"), gb)->tenThousandths(), 0);
        QVERIFY(!Money::parse(QStringLiteral("12a"), gb));
        QVERIFY(!Money::parse(QStringLiteral(""), gb));
        QVERIFY(!Money::parse(QStringLiteral("1.2.3"), gb));
        // 0.1 + 0.2 is exactly 0.3 here, unlike in floating point.
        const Money sum = *Money::parse(QStringLiteral("0.1"), gb) + *Money::parse(QStringLiteral("0.2"), gb);
        QCOMPARE(sum, *Money::parse(QStringLiteral("0.3"), gb));
    }

    void moneyFormatsTwoDecimalsWithGrouping() {
        const QLocale gb(QLocale::English, QLocale::UnitedKingdom);
        QCOMPARE(Money::fromTenThousandths(12345675).toString(gb), QStringLiteral("1,234.57"));
        QCOMPARE(Money::fromTenThousandths(-50).toString(gb), QStringLiteral("-0.01"));
        QCOMPARE(Money::fromTenThousandths(49).toString(gb), QStringLiteral("0.00"));
        QCOMPARE(Money::fromTenThousandths(12345675).toPlainString(), QStringLiteral("1234.57"));
        QCOMPARE((Money::fromPence(199) * 3).toString(gb), QStringLiteral("5.97"));
        const QLocale de(QLocale::German, QLocale::Germany);
        QCOMPARE(Money::fromTenThousandths(12345675).toString(de), QStringLiteral("1.234,57"));
        QCOMPARE(Money::parse(QStringLiteral("1.234,57"), de)->tenThousandths(), 12345700);
    }

    void datesAreDayFirstAndStoredAsIso() {
        const QLocale gb(QLocale::English, QLocale::UnitedKingdom);
        const QDate march11 = Dates::parseShortDate(QStringLiteral("11/03/2020"), gb);
        QCOMPARE(march11, QDate(2020, 3, 11));
        QCOMPARE(Dates::toStored(march11), QStringLiteral("2020-03-11"));
        QCOMPARE(Dates::dateFromStored(QStringLiteral("2010-12-31T10:00:00")), QDate(2010, 12, 31));
        QCOMPARE(Dates::shortDate(QDate(1980, 7, 4), gb), QStringLiteral("04/07/1980"));
        QVERIFY(!Dates::parseShortDate(QStringLiteral("31/02/2020"), gb).isValid());
    }
};

QTEST_GUILESS_MAIN(TestCommon)
#include "tst_common.moc"
