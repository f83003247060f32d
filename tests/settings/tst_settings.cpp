#include "common/FormHelpers.h"
#include "common/TextChecks.h"
#include "settings/OrganisationDetails.h"
#include "settings/SysDefaultsForm.h"
#include "shell/MainWindow.h"
#include "shell/MenuMasks.h"
#include "shell/MenuWiring.h"
#include "support/TestSupport.h"

#include <QAction>
#include <QApplication>
#include <QLabel>
#include <QLineEdit>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QPointer>
#include <QPushButton>
#include <QSqlQuery>
#include <QTest>

using namespace ordwell;
using test::TestContext;

namespace {

OrganisationDetails validDetails() {
    OrganisationDetails d;
    d[Location] = QStringLiteral("Harbour Books");
    d[Department] = QStringLiteral("Purchasing");
    d[Address1] = QStringLiteral("12 Quay Street");
    d[County] = QStringLiteral("Devon");
    d[Postcode] = QStringLiteral("EX11AB");
    d[Contact] = QStringLiteral("Jane Moss");
    d[Telephone] = QStringLiteral("(01392) 555 010");
    d[Email] = QStringLiteral("orders@harbour.example");
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
    for (int i = 0; i < 4; ++i)
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

void typeDetails(QWidget* form, const OrganisationDetails& d) {
    for (int field = 0; field < DetailsFieldCount; ++field)
        box(form, field)->setText(d[field]);
}

int syssetRows(AppContext& ctx, const char* where = "1 = 1") {
    QSqlQuery q(ctx.systemDb());
    q.exec(QStringLiteral("SELECT count(*) FROM Sysset WHERE %1").arg(QLatin1String(where)));
    q.next();
    return q.value(0).toInt();
}

QVariant storedValue(AppContext& ctx, const QString& column) {
    QSqlQuery q(ctx.systemDb());
    q.exec(QStringLiteral("SELECT %1 FROM Sysset").arg(column));
    return q.next() ? q.value(0) : QVariant();
}

void showActive(QWidget* form) {
    form->show();
    form->activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(form));
    QCoreApplication::processEvents();
}

} // namespace

class TestSettings : public QObject {
    Q_OBJECT
private slots:
    void initTestCase() {
        test::initTestEnvironment();
        QApplication::setQuitOnLastWindowClosed(false);
    }

    // Save: at most one message, except a bad postcode which is always reported.
    void saveChecks_data() {
        QTest::addColumn<int>("field");
        QTest::addColumn<QString>("value");
        QTest::addColumn<int>("secondField");
        QTest::addColumn<QString>("secondValue");
        QTest::addColumn<QStringList>("messages");
        const QStringList none;
        QTest::newRow("all valid") << int(Fax) << QString() << -1 << QString() << none;
        QTest::newRow("lower-case postcode") << int(Postcode) << "ab12cd" << -1 << QString() << none;
        QTest::newRow("postcode with a space")
            << int(Postcode) << "AB1 2CD" << -1 << QString() << QStringList{"Please enter a valid postcode"};
        QTest::newRow("phone with brackets and spaces")
            << int(Telephone) << "(0161) 496 0000" << -1 << QString() << none;
        QTest::newRow("phone with a hyphen")
            << int(Telephone) << "0161-496-0000" << -1 << QString() << QStringList{"Please enter a valid phone number"};
        QTest::newRow("empty phone") << int(Telephone) << "" << -1 << QString()
                                     << QStringList{"Please enter a valid phone number"};
        QTest::newRow("fax with a letter")
            << int(Fax) << "0161 49X" << -1 << QString() << QStringList{"Please enter a valid fax number"};
        QTest::newRow("no e-mail") << int(Email) << "" << -1 << QString()
                                   << QStringList{"Please enter an E-mail address"};
        QTest::newRow("no name, hyphenated postcode")
            << int(Location) << "" << int(Postcode) << "AB1-2CD"
            << QStringList{"Please enter an organisation name", "Please enter a valid postcode"};
        QTest::newRow("no name, empty postcode")
            << int(Location) << "" << int(Postcode) << "" << QStringList{"Please enter an organisation name"};
        QTest::newRow("no address, no county")
            << int(Address1) << "" << int(County) << "" << QStringList{"Please enter a primary address"};
        QTest::newRow("no contact, bad fax")
            << int(Contact) << "" << int(Fax) << "x" << QStringList{"Please enter a contact name"};
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
        const QString expectedPostcode = UpperCaseCode(d[Postcode]);
        const QList<DetailsProblem> problems = DetailsRules::validateForSave(d);
        QStringList texts;
        for (const DetailsProblem& p : problems) {
            texts << p.message;
            QCOMPARE(p.title, QStringLiteral("Invalid Data"));
            QCOMPARE(p.icon, p.box == Location ? MessageIcon::Critical : MessageIcon::Exclamation);
        }
        QCOMPARE(texts, messages);
        QCOMPARE(d[Postcode], expectedPostcode);
    }

    // Enter in a box: its own texts, title "Invalid data", and the postcode capitalised.
    void enterChecks_data() {
        QTest::addColumn<int>("field");
        QTest::addColumn<QString>("text");
        QTest::addColumn<QString>("message");
        QTest::newRow("empty department passes") << int(Department) << "" << QString();
        QTest::newRow("empty county") << int(County) << ""
                                      << "Please enter a county";
        QTest::newRow("postcode ab12cd") << int(Postcode) << "ab12cd" << QString();
        QTest::newRow("postcode with space") << int(Postcode) << "ab1 2cd"
                                             << "Please enter a valid postcode";
        QTest::newRow("telephone hyphen") << int(Telephone) << "01-2"
                                          << "Please enter a valid telephone number";
        QTest::newRow("fax letter") << int(Fax) << "01a"
                                    << "Please enter a fax number";
        QTest::newRow("empty fax passes") << int(Fax) << "" << QString();
        QTest::newRow("empty email") << int(Email) << ""
                                     << "Please enter an email address";
    }
    void enterChecks() {
        QFETCH(int, field);
        QFETCH(QString, text);
        QFETCH(QString, message);
        QString typed = text;
        const auto problem = DetailsRules::checkOnEnter(field, typed);
        QCOMPARE(problem ? problem->message : QString(), message);
        if (problem) {
            QCOMPARE(problem->title, QStringLiteral("Invalid data"));
            QCOMPARE(problem->icon, MessageIcon::Exclamation);
        }
        QCOMPARE(typed, field == Postcode ? UpperCaseCode(text) : text);
    }

    void storeKeepsOneRowWithNullsForEmptyOptionals() {
        TestContext t;
        OrganisationDetailsStore store(t.context().systemDb());
        QVERIFY(!store.load().value().has_value());
        OrganisationDetails d = validDetails();
        d[Location] = QStringLiteral("O'Brien's Supplies");
        // Empty boxes give empty (not null) texts; the table still gets no value for them.
        d[Address2] = d[Fax] = QStringLiteral("");
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

    // A new database, or one whose details were never saved, is treated alike.
    void firstEntryOpensForEditingAndSavesIntoViewing_data() {
        QTest::addColumn<bool>("justCreated");
        QTest::newRow("database just created") << true;
        QTest::newRow("details missing") << false;
    }
    void firstEntryOpensForEditingAndSavesIntoViewing() {
        QFETCH(bool, justCreated);
        TestContext t;
        t.context().DatabaseJustCreated = justCreated;
        MainWindow main(t.context());
        wireMenus(main, t.context());
        main.show();
        main.activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(&main));
        // An empty table brings the window up by itself, with only About on the menu.
        QPointer<QWidget> form;
        QTRY_VERIFY((form = main.findChild<SysDefaultsForm*>(QStringLiteral("frmsysdefaults"))));
        QVERIFY(!t.context().DatabaseJustCreated);
        QCOMPARE(menuMaskOf(main), MenuMasks::FirstEntry.left(18));
        QCOMPARE(t.context().OpenWindowCount, 1);
        QCOMPARE(form->windowTitle(), QStringLiteral("System Defaults"));
        QCOMPARE(buttonMaskOf(form), QStringLiteral("0100"));
        for (int field = 0; field < DetailsFieldCount; ++field) {
            QVERIFY(!box(form, field)->isReadOnly());
            QCOMPARE(boxColour(box(form, field)),
                     detailsFieldInfo(field).required ? BoxColour::Required : BoxColour::Optional);
        }
        auto* line0 = test::child<QLabel>(form, "lblinstr_0");
        auto* line1 = test::child<QLabel>(form, "lblinstr_1");
        QVERIFY(line0->isVisible() && line1->isVisible());
        QCOMPARE(line1->text(), QStringLiteral("Please enter your organisations details."));
        QTRY_COMPARE(QApplication::focusWidget(), box(form, 0));

        // The close box cannot skip the first entry.
        form->parentWidget()->close();
        QTest::qWait(20);
        QVERIFY(form && form->isVisible());

        typeDetails(form, validDetails());
        box(form, Postcode)->setText(QStringLiteral("ex1 1ab"));
        button(form, 1)->click();
        QCOMPARE(t.prompter().texts(), QStringList{"Please enter a valid postcode"});
        QCOMPARE(box(form, Postcode)->text(), QStringLiteral("EX1 1AB"));
        QCOMPARE(syssetRows(t.context()), 0);

        box(form, Postcode)->setText(QStringLiteral("ex11ab"));
        button(form, 1)->click();
        QCOMPARE(t.prompter().messages.size(), 1);
        QCOMPARE(storedValue(t.context(), "postcode").toString(), QStringLiteral("EX11AB"));
        QCOMPARE(buttonMaskOf(form), QStringLiteral("1001"));
        QVERIFY(!line0->isVisible() && !line1->isVisible());
        QVERIFY(box(form, 0)->isReadOnly());
        QCOMPARE(boxColour(box(form, 0)), BoxColour::Locked);
        QCOMPARE(QApplication::focusWidget(), button(form, 3));

        // Now the close box is Exit: the window goes and the menu returns.
        form->parentWidget()->close();
        QTRY_VERIFY(!form);
        QCOMPARE(t.context().OpenWindowCount, 0);
        QCOMPARE(menuMaskOf(main), MenuMasks::NoVendor.left(18));
        QVERIFY(t.prompter().unexpected.isEmpty());
    }

    void menuOpensOneWindowInViewing() {
        TestContext t;
        QVERIFY(OrganisationDetailsStore(t.context().systemDb()).save(validDetails()));
        MainWindow main(t.context());
        wireMenus(main, t.context());
        main.show();
        main.activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(&main));
        QTRY_COMPARE(menuMaskOf(main), MenuMasks::NoVendor.left(18));
        QVERIFY(!main.findChild<SysDefaultsForm*>());

        main.triggerMenu(QStringLiteral("mnusysdefault"));
        auto* form = main.findChild<SysDefaultsForm*>(QStringLiteral("frmsysdefaults"));
        QVERIFY(form);
        QCOMPARE(menuMaskOf(main), MenuMasks::SystemWindow.left(18));
        QCOMPARE(box(form, 0)->text(), QStringLiteral("Harbour Books"));
        QCOMPARE(buttonMaskOf(form), QStringLiteral("1001"));
        QVERIFY(!test::child<QLabel>(form, "lblinstr_0")->isVisible());
        QTRY_COMPARE(QApplication::focusWidget(), button(form, 0));

        // Even asked again while open, there stays one window.
        main.menuEntry(QStringLiteral("mnusysdefault"))->setEnabled(true);
        main.triggerMenu(QStringLiteral("mnusysdefault"));
        QCOMPARE(main.findChildren<SysDefaultsForm*>().size(), 1);
        QCOMPARE(t.context().OpenWindowCount, 1);
    }

    void cancelRestoresStoredValues() {
        TestContext t;
        QVERIFY(OrganisationDetailsStore(t.context().systemDb()).save(validDetails()));
        SysDefaultsForm form(t.context());
        button(&form, 0)->click();
        QCOMPARE(buttonMaskOf(&form), QStringLiteral("0110"));
        QVERIFY(!box(&form, County)->isReadOnly());
        box(&form, County)->setText(QStringLiteral("Cornwall"));
        box(&form, Fax)->setText(QStringLiteral("0123"));
        button(&form, 2)->click();
        QCOMPARE(box(&form, County)->text(), QStringLiteral("Devon"));
        QCOMPARE(box(&form, Fax)->text(), QString());
        QCOMPARE(buttonMaskOf(&form), QStringLiteral("1001"));
        QVERIFY(box(&form, County)->isReadOnly());
        QCOMPARE(storedValue(t.context(), "county").toString(), QStringLiteral("Devon"));
    }

    void twoFailuresEndInThePostcodeBox() {
        TestContext t;
        SysDefaultsForm form(t.context());
        showActive(&form);
        typeDetails(&form, validDetails());
        box(&form, Location)->clear();
        box(&form, Postcode)->setText(QStringLiteral("ab-12"));
        button(&form, 1)->click();
        QCOMPARE(t.prompter().texts(),
                 (QStringList{"Please enter an organisation name", "Please enter a valid postcode"}));
        QCOMPARE(QApplication::focusWidget(), box(&form, Postcode));
        QCOMPARE(buttonMaskOf(&form), QStringLiteral("0100"));
        QCOMPARE(box(&form, Contact)->text(), QStringLiteral("Jane Moss"));
    }

    void enterWalksTheBoxesToSave() {
        TestContext t;
        SysDefaultsForm form(t.context());
        showActive(&form);
        QCOMPARE(QApplication::focusWidget(), box(&form, 0));
        test::pressEnter(box(&form, 0));
        QCOMPARE(t.prompter().messages.size(), 1);
        QCOMPARE(t.prompter().messages.at(0).title, QStringLiteral("Invalid data"));
        QCOMPARE(QApplication::focusWidget(), box(&form, 0));

        const OrganisationDetails d = validDetails();
        for (int field = 0; field < DetailsFieldCount; ++field) {
            QTest::keyClicks(box(&form, field), d[field]);
            QTest::keyClick(box(&form, field), field % 2 ? Qt::Key_Enter : Qt::Key_Return);
            QWidget* next =
                field + 1 < DetailsFieldCount ? static_cast<QWidget*>(box(&form, field + 1)) : button(&form, 1);
            QCOMPARE(QApplication::focusWidget(), next);
        }
        QCOMPARE(t.prompter().messages.size(), 1);
        // Enter on the focused Save button stores the details.
        QTest::keyClick(button(&form, 1), Qt::Key_Return);
        QCOMPARE(syssetRows(t.context()), 1);
        QCOMPARE(QApplication::focusWidget(), button(&form, 3));
    }

    void apostropheIsStoredAndShownBack() {
        TestContext t;
        {
            SysDefaultsForm form(t.context());
            typeDetails(&form, validDetails());
            box(&form, Location)->setText(QStringLiteral("O'Brien's Supplies"));
            button(&form, 1)->click();
            QVERIFY(t.prompter().messages.isEmpty());
            // A second save through Edit rewrites the same row.
            button(&form, 0)->click();
            box(&form, Contact)->setText(QStringLiteral("Seán O'Brien"));
            button(&form, 1)->click();
        }
        QCOMPARE(syssetRows(t.context()), 1);
        SysDefaultsForm again(t.context());
        QCOMPARE(box(&again, Location)->text(), QStringLiteral("O'Brien's Supplies"));
        QCOMPARE(box(&again, Contact)->text(), QStringLiteral("Seán O'Brien"));
    }

    void failedSaveKeepsTheTypedValues() {
        TestContext t;
        QSqlQuery q(t.context().systemDb());
        QVERIFY(q.exec(QStringLiteral("CREATE TRIGGER refuse BEFORE INSERT ON Sysset "
                                      "BEGIN SELECT RAISE(ABORT, 'disk is full'); END")));
        SysDefaultsForm form(t.context());
        typeDetails(&form, validDetails());
        button(&form, 1)->click();
        QCOMPARE(t.prompter().messages.size(), 1);
        QCOMPARE(t.prompter().messages.at(0).icon, MessageIcon::Critical);
        QVERIFY(t.prompter().lastText().startsWith(QStringLiteral("The organisation's details could not be saved")));
        QCOMPARE(buttonMaskOf(&form), QStringLiteral("0100"));
        QVERIFY(!box(&form, 0)->isReadOnly());
        QCOMPARE(box(&form, Location)->text(), QStringLiteral("Harbour Books"));
        QCOMPARE(syssetRows(t.context()), 0);
    }
};

QTEST_MAIN(TestSettings)
#include "tst_settings.moc"
