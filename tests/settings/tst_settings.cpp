#include "app/MenuMasks.h"
#include "common/FormHelpers.h"
#include "common/Sql.h"
#include "settings/OrganisationDetails.h"
#include "settings/SysDefaultsForm.h"
#include "shell/MainWindow.h"
#include "support/TestSupport.h"

#include <QAction>
#include <QApplication>
#include <QLabel>
#include <QLineEdit>
#include <QPointer>
#include <QPushButton>
#include <QSqlQuery>
#include <QTest>

using namespace ordwell;

namespace {

OrganisationDetails validDetails() {
    OrganisationDetails d;
    const char* values[DetailsFieldCount] = {
        "Harbour Books",   "Purchasing", "12 Quay Street",        "", "", "Devon", "EX11AB", "Jane Moss",
        "(01392) 555 010", "",           "orders@harbour.example"};
    for (int field = 0; field < DetailsFieldCount; ++field)
        d[field] = QString::fromLatin1(values[field]);
    return d;
}

QLineEdit* box(QWidget* form, int index) {
    return test::child<QLineEdit>(form, QStringLiteral("txtbox_%1").arg(index));
}
QPushButton* button(QWidget* form, int index) {
    return test::child<QPushButton>(form, QStringLiteral("cmdbutton_%1").arg(index));
}
QString buttonMaskOf(QWidget* form) {
    QString mask;
    for (int i = 0; i < SysDefaultsForm::ButtonCount; ++i)
        mask += button(form, i)->isEnabled() ? QLatin1Char('1') : QLatin1Char('0');
    return mask;
}
// The menu entries' states as a mask, to compare with the masks the program applies.
QString menuMaskOf(MainWindow& main) {
    QString mask;
    for (QAction* entry : main.maskedEntries())
        mask += entry->isEnabled() ? QLatin1Char('1') : QLatin1Char('0');
    return mask;
}
int syssetRows(AppContext& ctx, const char* where = "1 = 1") {
    return Sql::scalar(ctx.systemDb(), QStringLiteral("SELECT count(*) FROM Sysset WHERE ") + QLatin1String(where))
        .value()
        .toInt();
}

} // namespace

class TestSettings : public test::StrictTest {
    Q_OBJECT
private slots:
    void initTestCase() {
        test::initTestEnvironment();
        QApplication::setQuitOnLastWindowClosed(false);
    }

    // Save: at most one message, except a bad postcode which is always reported (that case is
    // met through the window in firstEntryOpensForEditingAndSavesIntoViewing).
    void saveChecks_data() {
        QTest::addColumn<int>("field");
        QTest::addColumn<QString>("value");
        QTest::addColumn<int>("secondField");
        QTest::addColumn<QString>("secondValue");
        QTest::addColumn<QStringList>("messages");
        const auto row = [](const char* name, int field, const char* value, QStringList messages, int second = -1,
                            const char* secondValue = "") {
            QTest::newRow(name) << field << QString::fromUtf8(value) << second << QString::fromUtf8(secondValue)
                                << messages;
        };
        row("all valid, brackets and spaces in the phone", Fax, "", {});
        row("lower-case postcode", Postcode, "ab12cd", {});
        row("postcode with a space", Postcode, "AB1 2CD", {"Please enter a valid postcode"});
        row("phone with a hyphen", Telephone, "0161-496-0000", {"Please enter a valid phone number"});
        row("empty phone", Telephone, "", {"Please enter a valid phone number"});
        row("fax with a letter", Fax, "0161 49X", {"Please enter a valid fax number"});
        row("no e-mail", Email, "", {"Please enter an E-mail address"});
        row("no name, empty postcode", Location, "", {"Please enter an organisation name"}, Postcode, "");
        row("no address, no county", Address1, "", {"Please enter a primary address"}, County, "");
        row("no county", County, "", {"Please enter a County"});
    }
    void saveChecks() {
        QFETCH(int, field);
        QFETCH(QString, value);
        QFETCH(int, secondField);
        QFETCH(QString, secondValue);
        QFETCH(QStringList, messages);
        OrganisationDetails d = validDetails();
        d[field] = value;
        if (secondField >= 0)
            d[secondField] = secondValue;
        QStringList texts;
        for (const DetailsProblem& p : DetailsRules::validateForSave(d)) {
            texts << p.message;
            QCOMPARE(p.title, QStringLiteral("Invalid Data"));
            QCOMPARE(p.icon, p.field == Location ? MessageIcon::Critical : MessageIcon::Exclamation);
        }
        QCOMPARE(texts, messages);
    }

    void storeKeepsOneRowWithNullsForEmptyOptionals() {
        test::TestContext t;
        OrganisationDetailsStore store(t.context().systemDb());
        QVERIFY(!store.load().value().has_value());
        OrganisationDetails d = validDetails();
        d[Location] = QStringLiteral("O'Brien's Supplies");
        QVERIFY(store.save(d));
        QCOMPARE(syssetRows(t.context(), "add2 IS NULL AND add3 IS NULL AND fax IS NULL"), 1);
        QCOMPARE(*store.load().value(), d);

        // A new name is the row's key changing, not a second organisation.
        d[Location] = QStringLiteral("Harbour Books Ltd");
        d[Fax] = QStringLiteral("(01392) 555 011");
        QVERIFY(store.save(d));
        QCOMPARE(syssetRows(t.context()), 1);
        QCOMPARE(*store.load().value(), d);
    }

    // From an empty table to the first valid save, the only way out of the first entry.
    void firstEntryOpensForEditingAndSavesIntoViewing() {
        test::TestContext t;
        t.context().DatabaseJustCreated = true;
        auto main = test::openMainWindow(t.context());
        // An empty table brings the window up by itself, with only About on the menu.
        QPointer<QWidget> form = main->findChild<SysDefaultsForm*>(QStringLiteral("frmsysdefaults"));
        QVERIFY(form);
        QVERIFY(!t.context().DatabaseJustCreated);
        QCOMPARE(menuMaskOf(*main), MenuMasks::FirstEntry.left(18));
        QCOMPARE(t.context().OpenWindowCount, 1);
        QCOMPARE(buttonMaskOf(form), QStringLiteral("0100"));
        for (int field = 0; field < DetailsFieldCount; ++field) {
            QVERIFY(!box(form, field)->isReadOnly());
            QCOMPARE(boxColour(box(form, field)),
                     detailsFieldInfo(field).required ? BoxColour::Required : BoxColour::Optional);
        }
        auto* line0 = test::child<QLabel>(form, "lblinstr_0");
        auto* line1 = test::child<QLabel>(form, "lblinstr_1");
        QVERIFY(line0->isVisible() && line1->isVisible());
        QTRY_COMPARE(QApplication::focusWidget(), box(form, 0));

        // The close box cannot skip the first entry.
        form->parentWidget()->close();
        QTest::qWait(20);
        QVERIFY(form && form->isVisible());

        // Two failures at once: both are told, and the focus ends in the postcode box.
        for (int field = 0; field < DetailsFieldCount; ++field)
            box(form, field)->setText(validDetails()[field]);
        box(form, Location)->clear();
        box(form, Postcode)->setText(QStringLiteral("ex1-1ab"));
        button(form, 1)->click();
        QCOMPARE(t.prompter().texts(),
                 (QStringList{"Please enter an organisation name", "Please enter a valid postcode"}));
        QCOMPARE(QApplication::focusWidget(), box(form, Postcode));
        QCOMPARE(box(form, Postcode)->text(), QStringLiteral("EX1-1AB"));
        QCOMPARE(box(form, Contact)->text(), QStringLiteral("Jane Moss"));
        QCOMPARE(buttonMaskOf(form), QStringLiteral("0100"));
        QCOMPARE(syssetRows(t.context()), 0);

        // A write the database refuses is told, and the typed details stay for another try.
        t.prompter().clear();
        QSqlQuery refuse(t.context().systemDb());
        QVERIFY(refuse.exec(QStringLiteral("CREATE TRIGGER refuse BEFORE INSERT ON Sysset "
                                           "BEGIN SELECT RAISE(ABORT, 'disk is full'); END")));
        box(form, Location)->setText(QStringLiteral("Harbour Books"));
        box(form, Postcode)->setText(QStringLiteral("ex11ab"));
        button(form, 1)->click();
        QCOMPARE(t.prompter().messages.size(), 1);
        QCOMPARE(t.prompter().messages.at(0).icon, MessageIcon::Critical);
        QVERIFY(t.prompter().lastText().startsWith(QStringLiteral("The organisation's details could not be saved")));
        QCOMPARE(buttonMaskOf(form), QStringLiteral("0100"));
        QCOMPARE(box(form, Location)->text(), QStringLiteral("Harbour Books"));
        QCOMPARE(syssetRows(t.context()), 0);

        QVERIFY(refuse.exec(QStringLiteral("DROP TRIGGER refuse")));

        // Enter checks each box with texts of its own (title "Invalid data"), keeps the focus on
        // a refusal and otherwise moves it on, to Save after the last box; Enter there saves.
        const QMap<int, QPair<const char*, const char*>> refused = {
            {Location, {"", "Please enter an organisation name"}},
            {Address1, {"", "Please enter a primary address"}},
            {County, {"", "Please enter a county"}},
            {Postcode, {"ab1 2cd", "Please enter a valid postcode"}},
            {Contact, {"", "Please enter a contact name"}},
            {Telephone, {"01-2", "Please enter a valid telephone number"}},
            {Fax, {"01a", "Please enter a fax number"}},
            {Email, {"", "Please enter an email address"}}};
        OrganisationDetails d = validDetails();
        d[Postcode] = QStringLiteral("ex11ab");
        for (int field = 0; field < DetailsFieldCount; ++field) {
            if (refused.contains(field)) {
                t.prompter().clear();
                box(form, field)->setText(QString::fromLatin1(refused[field].first));
                test::pressEnter(box(form, field));
                QCOMPARE(t.prompter().texts(), QStringList{QString::fromLatin1(refused[field].second)});
                QCOMPARE(t.prompter().messages.at(0).title, QStringLiteral("Invalid data"));
                QCOMPARE(t.prompter().messages.at(0).icon, MessageIcon::Exclamation);
                QCOMPARE(QApplication::focusWidget(), box(form, field));
            }
            box(form, field)->clear();
            QTest::keyClicks(box(form, field), d[field]);
            QTest::keyClick(box(form, field), field % 2 ? Qt::Key_Enter : Qt::Key_Return);
            QCOMPARE(QApplication::focusWidget(),
                     field + 1 < DetailsFieldCount ? static_cast<QWidget*>(box(form, field + 1)) : button(form, 1));
        }
        QCOMPARE(box(form, Postcode)->text(), QStringLiteral("EX11AB"));
        QTest::keyClick(button(form, 1), Qt::Key_Return);
        QCOMPARE(t.prompter().messages.size(), 1);
        QCOMPARE(syssetRows(t.context(), "postcode = 'EX11AB'"), 1);
        QCOMPARE(buttonMaskOf(form), QStringLiteral("1001"));
        QVERIFY(!line0->isVisible() && !line1->isVisible());
        QCOMPARE(boxColour(box(form, 0)), BoxColour::Locked);
        QCOMPARE(QApplication::focusWidget(), button(form, 3));

        // Now the close box is Exit: the window goes and the menu returns.
        form->parentWidget()->close();
        QTRY_VERIFY(!form);
        QCOMPARE(t.context().OpenWindowCount, 0);
        QCOMPARE(menuMaskOf(*main), MenuMasks::NoVendor.left(18));
    }

    void menuOpensOneWindowInViewingAndCancelRestores() {
        test::TestContext t;
        OrganisationDetails d = validDetails();
        d[Contact] = QStringLiteral("Seán O'Brien");
        QVERIFY(OrganisationDetailsStore(t.context().systemDb()).save(d));
        auto main = test::openMainWindow(t.context());
        QCOMPARE(menuMaskOf(*main), MenuMasks::NoVendor.left(18));
        QVERIFY(!main->findChild<SysDefaultsForm*>());

        main->triggerMenu(QStringLiteral("mnusysdefault"));
        auto* form = main->findChild<SysDefaultsForm*>(QStringLiteral("frmsysdefaults"));
        QVERIFY(form);
        QCOMPARE(menuMaskOf(*main), MenuMasks::SystemWindow.left(18));
        QCOMPARE(box(form, Contact)->text(), QStringLiteral("Seán O'Brien"));
        QCOMPARE(buttonMaskOf(form), QStringLiteral("1001"));
        QVERIFY(!test::child<QLabel>(form, "lblinstr_0")->isVisible());
        QTRY_COMPARE(QApplication::focusWidget(), button(form, 0));

        // Cancel after a change puts the stored value back.
        button(form, 0)->click();
        QCOMPARE(buttonMaskOf(form), QStringLiteral("0110"));
        QVERIFY(!box(form, County)->isReadOnly());
        box(form, County)->setText(QStringLiteral("Cornwall"));
        button(form, 2)->click();
        QCOMPARE(box(form, County)->text(), QStringLiteral("Devon"));
        QCOMPARE(buttonMaskOf(form), QStringLiteral("1001"));
        QVERIFY(box(form, County)->isReadOnly());
        QCOMPARE(syssetRows(t.context(), "county = 'Devon'"), 1);

        // Someone else saves while this window edits: this save is refused and theirs shown.
        button(form, 0)->click();
        box(form, County)->setText(QStringLiteral("Cornwall"));
        QVERIFY(Sql::run(t.context().systemDb(), QStringLiteral("UPDATE Sysset SET county = 'Dorset'")));
        t.prompter().expect(OrganisationDetailsStore::ChangedElsewhereText);
        button(form, 1)->click();
        QCOMPARE(box(form, County)->text(), QStringLiteral("Dorset"));
        QCOMPARE(buttonMaskOf(form), QStringLiteral("1001"));
        QCOMPARE(syssetRows(t.context(), "county = 'Dorset'"), 1);

        // Even asked again while open, there stays one window.
        main->menuEntry(QStringLiteral("mnusysdefault"))->setEnabled(true);
        main->triggerMenu(QStringLiteral("mnusysdefault"));
        QCOMPARE(main->findChildren<SysDefaultsForm*>().size(), 1);
        QCOMPARE(t.context().OpenWindowCount, 1);
    }
};

QTEST_MAIN(TestSettings)
#include "tst_settings.moc"
