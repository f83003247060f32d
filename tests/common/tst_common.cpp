// The common helpers: codes, money and dates, and the record windows' shared machinery.
#include "common/Dates.h"
#include "common/FormHelpers.h"
#include "common/Money.h"
#include "common/RecordForm.h"
#include "common/TextChecks.h"
#include "support/TestSupport.h"

#include <QApplication>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>

using namespace ordwell;

namespace {

// A cursor over a million records that holds none of them: the window must only ask.
class CountingCursor : public RecordCursor {
public:
    int count() const override { return 1000000; }
    int position() const override { return m_position; }
    bool first() override { return step(1); }
    bool previous() override { return step(m_position - 1); }
    bool next() override { return step(m_position + 1); }
    bool last() override { return step(count()); }

private:
    bool step(int to) {
        if (to < 1 || to > count())
            return false;
        m_position = to;
        return true;
    }
    int m_position = 1;
};

enum { Code, Price, Expiry, Note };

// Four boxes: a required code upper-cased and refused when empty, a money box, a date box and
// an optional note; Enter goes code -> price -> note (skipping the expiry) -> Save.
QList<FieldSpec> sampleFields() {
    const auto spec = [](int field, const char* caption, int length, FieldNeed need, FieldKind kind, int next) {
        return FieldSpec{
            QStringLiteral("txtitem_%1").arg(field), QString::fromLatin1(caption), {}, length, need, kind, next, {}};
    };
    QList<FieldSpec> fields{spec(Code, "Code", 8, FieldNeed::Required, FieldKind::Text, Price),
                            spec(Price, "Price", 0, FieldNeed::Required, FieldKind::Money, Note),
                            spec(Expiry, "Expiry", 0, FieldNeed::Fixed, FieldKind::Date, NextStays),
                            spec(Note, "Note", 0, FieldNeed::Optional, FieldKind::Text, NextIsSave)};
    fields[Code].onEnter = [](QString& text) -> std::optional<FieldProblem> {
        text = text.toUpper();
        if (text.isEmpty())
            return FieldProblem{QStringLiteral("Please enter a code"), QStringLiteral("Invalid"),
                                MessageIcon::Exclamation, Code};
        return std::nullopt;
    };
    return fields;
}

struct SampleForm {
    SampleForm()
        : record(
              &window, [this]() -> Prompter& { return prompter; }, sampleFields()) {
        for (int i = 0; i < 2; ++i)
            buttons << new QPushButton(QStringLiteral("b%1").arg(i), &window);
        position = new QLabel(&window);
        record.setButtons(buttons, 1);
        record.setPosition(
            position, &cursor, [](int p, int c) { return QStringLiteral("Record %1 of %2").arg(p).arg(c); },
            [](int p, int c) { return p == c ? QStringLiteral("10") : QStringLiteral("11"); });
        record.addState(0, {});
        record.addState(1, {QStringLiteral("01"), [](int f) { return f != Note; }, QStringLiteral("Editing")});
        window.show();
        window.activateWindow();
    }
    QWidget window;
    test::ScriptedPrompter prompter;
    CountingCursor cursor;
    QList<QAbstractButton*> buttons;
    QLabel* position = nullptr;
    RecordForm record;
};

} // namespace

class TestCommon : public test::StrictTest {
    Q_OBJECT
private slots:
    void initTestCase() { test::initTestEnvironment(); }

    void upperCaseCodeTouchesOnlyAsciiLetters() {
        QCOMPARE(UpperCaseCode(QStringLiteral("abc-12 xyz")), QStringLiteral("ABC-12 XYZ"));
        QCOMPARE(UpperCaseCode(QStringLiteral("é'ß")), QStringLiteral("é'ß"));
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
        for (const char* bad : {"12a", "", "1.2.3"})
            QVERIFY2(!Money::parse(QString::fromLatin1(bad), gb), bad);
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

    void valuesAreTypedBothWays_data() {
        QTest::addColumn<int>("kind");
        QTest::addColumn<QString>("typed");
        QTest::addColumn<bool>("valid");
        QTest::addColumn<QString>("shown");
        QTest::newRow("money grouped") << int(FieldKind::Money) << " 1,234.5 " << true << "1,234.50";
        QTest::newRow("money word") << int(FieldKind::Money) << "ten" << false << "";
        QTest::newRow("date day first") << int(FieldKind::Date) << "11/03/2020" << true << "11/03/2020";
        QTest::newRow("date impossible") << int(FieldKind::Date) << "31/02/2020" << false << "";
        QTest::newRow("number") << int(FieldKind::Number) << "1000000" << true << "1000000";
        QTest::newRow("number with letters") << int(FieldKind::Number) << "10a" << false << "";
        QTest::newRow("empty number") << int(FieldKind::Number) << "  " << true << "";
        QTest::newRow("text kept as typed") << int(FieldKind::Text) << " a b " << true << " a b ";
    }
    void valuesAreTypedBothWays() {
        QFETCH(int, kind);
        QFETCH(QString, typed);
        QFETCH(bool, valid);
        QFETCH(QString, shown);
        const auto value = Fields::parse(FieldKind(kind), typed);
        QCOMPARE(value.has_value(), valid);
        if (valid)
            QCOMPARE(Fields::format(*value), shown);
    }

    // The first failure ends the run, except checks that always run.
    void checksRunInOrder() {
        int evaluated = 0;
        const auto failing = [&evaluated] {
            ++evaluated;
            return true;
        };
        CheckSequence checks;
        checks.check([] { return false; }, {QStringLiteral("a"), {}, MessageIcon::None, 0})
            .check(failing, {QStringLiteral("b"), {}, MessageIcon::None, 1})
            .check(failing, {QStringLiteral("c"), {}, MessageIcon::None, 2})
            .alwaysCheck(failing, {QStringLiteral("d"), {}, MessageIcon::None, 3});
        QCOMPARE(evaluated, 2);
        QCOMPARE(checks.problems().size(), 2);
        QCOMPARE(checks.first()->message, QStringLiteral("b"));
        QCOMPARE(checks.problems().last().field, 3);
    }

    void statesLockColourMaskAndPosition() {
        SampleForm f;
        QCOMPARE(f.record.caption(Code)->buddy(), f.record.box(Code));
        QCOMPARE(f.record.box(Code)->maxLength(), 8);
        f.record.enterState(0);
        QCOMPARE(f.position->text() + buttonMask(f.buttons), QStringLiteral("Record 1 of 100000011"));
        for (int field : {Code, Price, Expiry, Note})
            QCOMPARE(boxColour(f.record.box(field)), BoxColour::Locked);
        f.record.enterState(1);
        QCOMPARE(f.position->text() + buttonMask(f.buttons), QStringLiteral("Editing01"));
        QCOMPARE(boxColour(f.record.box(Code)), BoxColour::Required);
        QVERIFY(!f.record.box(Code)->isReadOnly());
        QCOMPARE(boxColour(f.record.box(Expiry)), BoxColour::Locked); // never typed in, whatever the state
        QCOMPARE(boxColour(f.record.box(Note)), BoxColour::Locked);
        f.cursor.last();
        f.record.enterState(0);
        QCOMPARE(f.position->text() + buttonMask(f.buttons), QStringLiteral("Record 1000000 of 100000010"));
    }

    void enterChecksRewritesAndFollowsTheTable() {
        SampleForm f;
        QVERIFY(QTest::qWaitForWindowActive(&f.window));
        f.record.enterState(0);
        test::pressEnter(f.record.box(Code)); // locked: nothing checked
        QVERIFY(f.prompter.messages.isEmpty());

        f.record.enterState(1);
        f.record.box(Code)->setFocus();
        test::pressEnter(f.record.box(Code));
        QCOMPARE(f.prompter.lastText(), QStringLiteral("Please enter a code"));
        QCOMPARE(QApplication::focusWidget(), f.record.box(Code));

        QTest::keyClicks(f.record.box(Code), QStringLiteral("ab1"));
        test::pressEnter(f.record.box(Code));
        QCOMPARE(f.record.text(Code), QStringLiteral("AB1"));
        QCOMPARE(QApplication::focusWidget(), f.record.box(Price));
        test::pressEnter(f.record.box(Price));
        QCOMPARE(QApplication::focusWidget(), f.record.box(Note));
        f.record.applyMask(QStringLiteral("11"));
        f.record.box(Note)->setReadOnly(false);
        test::pressEnter(f.record.box(Note));
        QCOMPARE(QApplication::focusWidget(), f.buttons.at(1));
        QCOMPARE(f.prompter.messages.size(), 1);

        f.record.setValue(Price, Money::fromPence(123456));
        QCOMPARE(f.record.text(Price), QStringLiteral("1,234.56"));
        QCOMPARE(std::get<Money>(*f.record.value(Price)), Money::fromPence(123456));
    }
};

QTEST_MAIN(TestCommon)
#include "tst_common.moc"
