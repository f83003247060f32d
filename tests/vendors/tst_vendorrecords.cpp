#include "common/FormHelpers.h"
#include "common/Sql.h"
#include "store/DatabaseFile.h"
#include "store/Store.h"
#include "support/TestSupport.h"
#include "vendors/VendorRecords.h"
#include "vendors/VendorRecordsForm.h"
#include "vendors/VendorRepository.h"

#include <QApplication>
#include <QDir>
#include <QFileInfo>
#include <QLabel>
#include <QLineEdit>
#include <QPointer>
#include <QPushButton>
#include <QRegularExpression>
#include <QTemporaryDir>
#include <QTest>

using namespace ordwell;
using Form = VendorRecordsForm;
using F = VendorField;

namespace {

VendorDetails sampleDetails() {
    VendorDetails d;
    d[F::CustomerId] = QStringLiteral("CUST1");
    d[F::Address1] = QStringLiteral("1 High Street");
    d[F::County] = QStringLiteral("Kent");
    d[F::Postcode] = QStringLiteral("CT1 1AA");
    d[F::RepName] = QStringLiteral("Ann Smith");
    return d;
}

// Columns of a vendor's stored details row, read on a connection of the test's own; NULL
// shows as "NULL".
QStringList stored(const QString& dataDir, const char* code, const QStringList& columns) {
    QStringList values;
    {
        auto db =
            Store::OpenVendorDatabase(dataDir, Store::vendorFileName(QLatin1String(code)), QStringLiteral("Read"));
        for (const QString& column : columns) {
            const QVariant v = Sql::scalar(*db, QStringLiteral("SELECT %1 FROM vendor").arg(column)).value();
            values << (v.isNull() ? QStringLiteral("NULL") : v.toString());
        }
    }
    DatabaseFile::close(QStringLiteral("Read"));
    return values;
}

struct Seed {
    const char* name;
    const char* code;
    bool active = true;
};

// Vendors as the window would have left them (entry, database, details row), and the window
// shown and active over them, as a user meets it.
class Fixture {
public:
    explicit Fixture(std::initializer_list<Seed> vendors = {}) {
        AppContext& ctx = tc.context();
        for (const Seed& s : vendors) {
            const QString code = QString::fromLatin1(s.code);
            QVERIFY(VendorRecords::CreateVendorEntry(ctx.systemDb(), ctx.dataDir(), QString::fromLatin1(s.name), code));
            QVERIFY(VendorRecords::SaveVendorDetails(ctx.dataDir(), code, sampleDetails(), SaveMode::New));
            if (!s.active)
                QVERIFY(VendorRepository::deactivateVendor(ctx.systemDb(), code));
        }
        m_form = new Form(ctx);
        m_form->beginToolWindow();
        m_form->show();
        m_form->activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(m_form));
    }
    ~Fixture() { delete m_form.data(); }

    AppContext& ctx() { return tc.context(); }
    test::ScriptedPrompter& prompter() { return tc.prompter(); }
    Form* operator->() const { return m_form; }
    bool isOpen() const { return m_form && m_form->isVisible(); }
    QLineEdit* box(F f) const { return test::child<QLineEdit>(m_form, QStringLiteral("txtbox_%1").arg(int(f))); }
    QLineEdit* company() const { return test::child<QLineEdit>(m_form, QStringLiteral("txtcomp_0")); }
    QLineEdit* code() const { return test::child<QLineEdit>(m_form, QStringLiteral("txtcomp_1")); }
    QPushButton* button(int i) const { return test::child<QPushButton>(m_form, QStringLiteral("cmdbutton_%1").arg(i)); }
    QPushButton* importButton() const { return test::child<QPushButton>(m_form, QStringLiteral("cmdimprpt")); }
    // The position text and the button mask, as the user sees them together.
    QString shown() const {
        QList<QAbstractButton*> buttons;
        for (int i = 0; i < Form::ButtonCount; ++i)
            buttons << button(i);
        return test::child<QLabel>(m_form, QStringLiteral("lblreccount"))->text() + QLatin1Char(' ') +
               buttonMask(buttons);
    }
    int vendorRows() {
        return Sql::scalar(ctx().systemDb(), QStringLiteral("SELECT count(*) FROM vendors")).value().toInt();
    }
    void type(QLineEdit* edit, const QString& text) const {
        edit->clear();
        QTest::keyClicks(edit, text);
    }
    void startAdd(const QString& name, const QString& shortcode) const {
        button(Form::AddNew)->click();
        type(company(), name);
        type(code(), shortcode);
    }
    // Types into a box and presses Enter; the message that brought, empty when none.
    QString enter(QLineEdit* edit, const QString& text) {
        prompter().clear();
        type(edit, text);
        test::pressEnter(edit);
        return prompter().lastText();
    }

    test::TestContext tc;

private:
    QPointer<Form> m_form;
};

} // namespace

class TestVendorRecords : public test::StrictTest {
    Q_OBJECT
private slots:
    void initTestCase() { test::initTestEnvironment(); }

    void browsingFollowsTheListPosition() {
        {
            Fixture f;
            QCOMPARE(f.shown(), QStringLiteral("There are no active vendors 000000011"));
            QTRY_COMPARE(QApplication::focusWidget(), f.button(Form::AddNew));
        }
        {
            Fixture f({{"Acme Ltd", "ACM"}});
            QCOMPARE(f.shown(), QStringLiteral("Record 1 of 1 100000011"));
            QTRY_COMPARE(QApplication::focusWidget(), f.button(Form::Edit));
        }
        // Deactivated vendors are not listed; the rest come in code order.
        Fixture f({{"Zeta Supplies", "ZET"}, {"Acme Ltd", "ACM"}, {"Gone Ltd", "GON", false}, {"Midway Ltd", "MID"}});
        QCOMPARE(f.company()->text() + QLatin1Char(' ') + f.box(F::CustomerId)->text(),
                 QStringLiteral("Acme Ltd CUST1"));
        QCOMPARE(f.shown(), QStringLiteral("Record 1 of 3 100001111"));
        const std::pair<int, const char*> steps[] = {{Form::Next, "MID Record 2 of 3 100111111"},
                                                     {Form::Last, "ZET Record 3 of 3 100110011"},
                                                     {Form::Previous, "MID Record 2 of 3 100111111"},
                                                     {Form::First, "ACM Record 1 of 3 100001111"}};
        for (const auto& [press, expected] : steps) {
            f.button(press)->click();
            QCOMPARE(f.code()->text() + QLatin1Char(' ') + f.shown(), QString::fromLatin1(expected));
        }
        f.button(Form::Exit)->click();
        QTRY_VERIFY(!f.isOpen());
        QCOMPARE(f.ctx().OpenWindowCount, 0);
    }

    void shortcodeChecks_data() {
        QTest::addColumn<QString>("name");
        QTest::addColumn<QString>("typed");
        QTest::addColumn<QString>("message"); // title, then text
        QTest::addColumn<MessageIcon>("icon");
        const auto row = [](const char* tag, const char* name, const char* typed, const char* message,
                            MessageIcon icon) {
            QTest::newRow(tag) << QString::fromLatin1(name) << QString::fromLatin1(typed)
                               << QString::fromLatin1(message) << icon;
        };
        const char* tooShort = "Company shortcode error: The Company shortcode must be 3 characters long, please "
                               "correct this";
        row("blank name", "", "abc", "Company name error: The company name is blank, please enter a company name",
            MessageIcon::Critical);
        row("two characters", "Beta", "ab", tooShort, MessageIcon::Critical);
        row("empty code", "Beta", "", tooShort, MessageIcon::Critical);
        row("hyphen", "Beta", "a-c", "Illegal Shortcode: The vendor shortcode contains illegal characters",
            MessageIcon::Exclamation);
        row("used by a deactivated vendor", "Beta", "old",
            "Vendor code duplicated: The vendor code has already been used, please enter a new vendor code",
            MessageIcon::Exclamation);
    }

    void shortcodeChecks() {
        QFETCH(QString, name);
        QFETCH(QString, typed);
        QFETCH(QString, message);
        QFETCH(MessageIcon, icon);
        Fixture f({{"Old Vendor", "OLD", false}});
        f.startAdd(name, typed);
        f.button(Form::Save)->click();
        QCOMPARE(f.prompter().messages.size(), 1);
        QCOMPARE(f.prompter().messages[0].title + QStringLiteral(": ") + f.prompter().messages[0].text, message);
        QCOMPARE(f.prompter().messages[0].icon, icon);
        // The code is shown upper-cased once the name has passed; the add carries on.
        QCOMPARE(f.code()->text(), name.isEmpty() ? typed : typed.toUpper());
        QCOMPARE(f.shown(), QStringLiteral("Adding/Editing Record 011000000"));
        QCOMPARE(QApplication::focusWidget(), name.isEmpty() ? f.company() : f.code());
        QCOMPARE(f.vendorRows(), 1);
    }

    void addingAVendorTakesTwoStages() {
        Fixture f({{"Acme Ltd", "ACM"}, {"Zeta Supplies", "ZET"}});
        f.startAdd(QStringLiteral("O'Brien's Supplies"), QStringLiteral("obs"));
        QCOMPARE(boxColour(f.company()), BoxColour::Required);
        f.button(Form::Save)->click();
        QVERIFY2(f.prompter().messages.isEmpty(), qPrintable(f.prompter().lastText()));

        // The vendor exists and its identity is fixed: only Save is left, the close box does nothing.
        QCOMPARE(f.code()->text() + QLatin1Char(' ') + f.shown(), QStringLiteral("OBS Record 2 of 3 010000000"));
        QCOMPARE(f.company()->text(), QStringLiteral("O'Brien's Supplies"));
        QCOMPARE(boxColour(f.company()), BoxColour::Locked);
        QCOMPARE(boxColour(f.box(F::Address2)), BoxColour::Optional);
        QCOMPARE(boxColour(f.box(F::County)), BoxColour::Required);
        QCOMPARE(QApplication::focusWidget(), f.box(F::CustomerId));
        QVERIFY(QFileInfo(f.ctx().dataFile(QStringLiteral("OBSvendor.mdb"))).isFile());
        f->close();
        QTest::qWait(20);
        QVERIFY(f.isOpen());

        VendorDetails d = sampleDetails();
        d[F::Postcode] = QStringLiteral("ab1 2cd");
        d[F::RepPhone] = QStringLiteral("(01234) 567890");
        for (int i = 0; i < int(F::NextOrder); ++i)
            f.type(f.box(F(i)), d.values[i]);
        f.button(Form::Save)->click();
        QVERIFY(f.prompter().messages.isEmpty());
        QCOMPARE(f.shown(), QStringLiteral("Record 2 of 3 100111111"));
        QCOMPARE(QApplication::focusWidget(), f.button(Form::Exit));
        const QString defaultReport = QDir(f.ctx().dataDir()).filePath(QStringLiteral("ordform.rpt"));
        const QStringList shown = {f.box(F::Postcode)->text(), f.box(F::NextOrder)->text(),
                                   f.box(F::OrderForm)->text()};
        QCOMPARE(shown, (QStringList{"AB1 2CD", "1000000", defaultReport}));

        QCOMPARE(stored(f.ctx().dataDir(), "OBS",
                        {"vendorid", "postcode", "reptel", "nextord", "ordform", "add2", "contacttel"}),
                 (QStringList{"OBS", "AB1 2CD", "(01234) 567890", "1000000", "ordform.rpt", "NULL", "NULL"}));
    }

    // Save's checks, in order: from the sample details with one box changed, or from nothing at
    // all (every box empty) to see which check speaks first.
    void detailChecks_data() {
        QTest::addColumn<bool>("fromNothing");
        QTest::addColumn<int>("field");
        QTest::addColumn<QString>("value");
        QTest::addColumn<QString>("message"); // empty: passes
        const auto row = [](const char* name, F f, const char* v, const char* msg, bool fromNothing = false) {
            QTest::newRow(name) << fromNothing << int(f) << QString::fromLatin1(v) << QString::fromLatin1(msg);
        };
        row("postcode with hyphen", F::Postcode, "CT1-1AA", "Please enter a valid postode");
        row("no customer", F::CustomerId, "", "please enter a customer ID");
        row("spaces only", F::Address1, "   ", "Please enter a primary address");
        row("no county", F::County, "", "Please enter a county");
        row("no postcode", F::Postcode, "", "Please enter a postcode");
        row("no rep", F::RepName, "", "Please enter a representatives name");
        row("rep phone hyphen", F::RepPhone, "01234-567890", "Please enter a valid representatives phone number");
        row("contact phone letters", F::ContactPhone, "ext 5", "Please enter a valid contact phone number");
        row("fax hyphen", F::ContactFax, "01-2", "Please enter a valid contact fax number");
        row("email unchecked", F::RepEmail, "not an email!", "");
        row("bad postcode first", F::Postcode, "a-b", "Please enter a valid postode", true);
        row("then the customer", F::RepPhone, "x", "please enter a customer ID", true);
    }

    void detailChecks() {
        QFETCH(bool, fromNothing);
        QFETCH(int, field);
        QFETCH(QString, value);
        QFETCH(QString, message);
        VendorDetails d = fromNothing ? VendorDetails() : sampleDetails();
        d.values[field] = value;
        const VendorCheck check = VendorRecords::ValidateVendorDetails(d);
        QCOMPARE(check.passed() ? QString() : check.failure->text, message);
        if (!check.passed() && !fromNothing)
            QCOMPARE(int(check.focus), field);
        if (!check.passed()) // the phone checks have a title of their own
            QCOMPARE(check.failure->title, check.focus < F::RepPhone ? "Invalid data" : "Invalid Data");
    }

    // Enter in each detail box in turn while editing: what it refuses, keeping the box, and
    // where a passing value sends the focus, the last box to Save.
    void enterChecksEachBoxAndMovesOn() {
        Fixture f({{"Acme Ltd", "ACM"}});
        test::pressEnter(f.box(F::RepPhone)); // browsing: a locked box is not checked
        QVERIFY(f.prompter().messages.isEmpty());
        f.button(Form::Edit)->click();
        QCOMPARE(f.shown(), QStringLiteral("Adding/Editing Record 011000000"));
        QCOMPARE(QApplication::focusWidget(), f.box(F::CustomerId));
        const struct {
            F box;
            const char* refused; // nullptr: the box refuses nothing
            const char* message;
            const char* accepted;
        } steps[] = {
            {F::CustomerId, "", "Please enter a customer ID", "C1"},
            {F::Address1, "", "Please enter an address", "2 Low Road"},
            {F::Address2, nullptr, "", ""},
            {F::Address3, nullptr, "", "Upper Town"},
            {F::County, "", "Please enter a county", "Kent"},
            {F::Postcode, "ct1-1aa", "Please enter a valid postcode", "ct2 2bb"},
            {F::RepName, "", "Please enter a representatives name", "Bob"},
            {F::RepPhone, "0123-4", "Please enter a valid phone number", ""},
            {F::RepEmail, nullptr, "", "not checked!"},
            {F::ContactName, nullptr, "", ""},
            {F::ContactPhone, "call me", "Please enter a valid phone number", "(01234) 567890"},
            {F::ContactFax, "01-2", "Please enter a valid phone number", ""},
            {F::ContactEmail, nullptr, "", "x@y.z"},
        };
        for (size_t i = 0; i < std::size(steps); ++i) {
            QLineEdit* edit = f.box(steps[i].box);
            if (steps[i].refused) {
                QCOMPARE(f.enter(edit, QString::fromLatin1(steps[i].refused)), QString::fromLatin1(steps[i].message));
                QCOMPARE(f.prompter().messages.last().title, QStringLiteral("Invalid Data"));
                QCOMPARE(f.prompter().messages.last().icon, MessageIcon::Exclamation);
                QCOMPARE(QApplication::focusWidget(), edit);
            }
            QVERIFY2(f.enter(edit, QString::fromLatin1(steps[i].accepted)).isEmpty(), steps[i].accepted);
            QCOMPARE(QApplication::focusWidget(),
                     i + 1 < std::size(steps) ? static_cast<QWidget*>(f.box(steps[i + 1].box)) : f.button(Form::Save));
        }
        QCOMPARE(f.box(F::Postcode)->text(), QStringLiteral("CT2 2BB"));
        QCOMPARE(f.enter(f.box(F::Postcode), QString()), QStringLiteral("Please enter a postcode"));

        // The close box stands for Cancel while editing: the stored details come back.
        f->close();
        QTRY_COMPARE(f.box(F::CustomerId)->text(), QStringLiteral("CUST1"));
        QCOMPARE(f.code()->text() + QLatin1Char(' ') + f.shown(), QStringLiteral("ACM Record 1 of 1 100000011"));
        QCOMPARE(QApplication::focusWidget(), f.button(Form::Exit));
        QVERIFY(f.box(F::CustomerId)->isReadOnly());

        // The identity boxes during an add: Enter checks, only Save creates.
        f.button(Form::AddNew)->click();
        QCOMPARE(f.enter(f.company(), QString()), QStringLiteral("Please enter a company name"));
        QCOMPARE(f.prompter().messages.last().title, QStringLiteral("No Company name"));
        QVERIFY(f.enter(f.company(), QStringLiteral("New Co")).isEmpty());
        QCOMPARE(QApplication::focusWidget(), f.code());
        QVERIFY(f.enter(f.code(), QStringLiteral("new")).isEmpty());
        QCOMPARE(f.code()->text(), QStringLiteral("NEW"));
        QCOMPARE(QApplication::focusWidget(), f.button(Form::Save));
        QCOMPARE(f.vendorRows(), 1);
    }

    // An add interrupted after its first stage leaves a database with no details row; saving
    // its details as an update writes the row, as a new vendor's would be.
    void updateWithNoDetailsRowInsertsIt() {
        test::TestContext tc;
        const QString dir = tc.context().dataDir(), hlf = QStringLiteral("HLF");
        QVERIFY(VendorRecords::CreateVendorEntry(tc.context().systemDb(), dir, QStringLiteral("Half Done"), hlf));
        QCOMPARE(stored(dir, "HLF", {"count(*)"}), QStringList{"0"});
        VendorDetails d = sampleDetails();
        d.nextOrder.reset();
        const auto saved = VendorRecords::SaveVendorDetails(dir, hlf, d, SaveMode::Update);
        QVERIFY2(saved, qPrintable(saved.message()));
        const QString firstOrder = QString::number(VendorRecords::FirstOrderNumber);
        QCOMPARE(stored(dir, "HLF", {"count(*)", "vendorid", "customerid", "nextord", "ordform"}),
                 (QStringList{"1", "HLF", "CUST1", firstOrder, "ordform.rpt"}));

        // Saved again as an update, the one row is rewritten, not joined by another.
        d[F::County] = QStringLiteral("Essex");
        QVERIFY(VendorRecords::SaveVendorDetails(dir, hlf, d, SaveMode::Update));
        QCOMPARE(stored(dir, "HLF", {"count(*)", "county"}), (QStringList{"1", "Essex"}));

        // Two places save over the same details: the later one is refused, the first kept, and
        // the order counter that moved meanwhile is never written back.
        const VendorDetails shown = VendorRecords::LoadVendorDetails(dir, hlf).details;
        VendorDetails first = shown, second = shown;
        first[F::County] = QStringLiteral("Kent");
        first.nextOrder = 1;
        QVERIFY(VendorRecords::SaveVendorDetails(dir, hlf, first, SaveMode::Update, &shown));
        second[F::County] = QStringLiteral("Surrey");
        bool changedElsewhere = false;
        const auto refused =
            VendorRecords::SaveVendorDetails(dir, hlf, second, SaveMode::Update, &shown, &changedElsewhere);
        QVERIFY(changedElsewhere);
        QVERIFY(refused.message().endsWith(VendorRecords::ChangedElsewhereText.arg(hlf)));
        QCOMPARE(stored(dir, "HLF", {"county", "nextord"}), (QStringList{"Kent", firstOrder}));
    }

    void failedOrCancelledAddLeavesNoVendorBehind() {
        Fixture f({{"Acme Ltd", "ACM"}, {"Beta Ltd", "BET"}});
        // Something already holds the new vendor's file name: its vendors row is taken out again.
        QVERIFY(QDir(f.ctx().dataDir()).mkdir(QStringLiteral("BLKvendor.mdb")));
        f.startAdd(QStringLiteral("Blocked Ltd"), QStringLiteral("BLK"));
        f.button(Form::Save)->click();
        QCOMPARE(f.prompter().messages.size(), 1);
        QVERIFY(f.prompter().lastText().contains(QStringLiteral("could not be added")));
        QCOMPARE(f.prompter().messages.last().icon, MessageIcon::Critical);
        QCOMPARE(f.vendorRows(), 2);
        QCOMPARE(f.shown(), QStringLiteral("Adding/Editing Record 011000000"));

        // A company name that is taken (in any case) is told plainly.
        f.prompter().clear();
        f.startAdd(QStringLiteral("ACME LTD"), QStringLiteral("AC2"));
        f.button(Form::Save)->click();
        QCOMPARE(f.prompter().messages.size(), 1);
        QVERIFY(f.prompter().lastText().contains(QStringLiteral("already exists")));
        QCOMPARE(f.vendorRows(), 2);

        // Cancel, or the close box in this stage of an add begun from another vendor, gives the add
        // up and shows the first vendor again.
        for (bool closeBox : {false, true}) {
            if (closeBox) {
                f.button(Form::Next)->click();
                f.startAdd(QStringLiteral("Gamma Ltd"), QStringLiteral("GAM"));
                f->close();
            } else {
                f.button(Form::Cancel)->click();
            }
            QTRY_COMPARE(f.code()->text() + QLatin1Char(' ') + f.shown(),
                         QStringLiteral("ACM Record 1 of 2 100001111"));
            QVERIFY(f.isOpen());
            QCOMPARE(f.company()->text() + QLatin1Char(' ') + f.box(F::CustomerId)->text(),
                     QStringLiteral("Acme Ltd CUST1"));
            QVERIFY(f.company()->isReadOnly() && f.code()->isReadOnly() && f.box(F::CustomerId)->isReadOnly());
            QCOMPARE(boxColour(f.company()), BoxColour::Locked);
            QCOMPARE(QApplication::focusWidget(), f.button(Form::Exit));
            QCOMPARE(f.vendorRows(), 2);
            QVERIFY(!QFileInfo::exists(f.ctx().dataFile(QStringLiteral("GAMvendor.mdb"))));
            QCOMPARE(f.ctx().OpenWindowCount, 1);
        }
    }

    void importedReportIsMovedAndSavedWithTheDetails() {
        Fixture f({{"Acme Ltd", "ACM"}});
        AppContext& ctx = f.ctx();
        // Chosen from another file system where there is one, where a rename cannot do the move.
        QTemporaryDir elsewhere(QStringLiteral("/dev/shm/ordwell-XXXXXX"));
        const QString chosen = QDir(elsewhere.isValid() ? elsewhere.path() : ctx.DesktopPath).filePath("special.rpt");
        const QString target = ctx.dataFile(QStringLiteral("ACMordform.rpt"));
        const auto storedReport = [&ctx] { return stored(ctx.dataDir(), "ACM", {"ordform"}).value(0); };
        QVERIFY(test::writeFile(chosen, "new report"));
        QVERIFY(!f.importButton()->isEnabled());
        f.button(Form::Edit)->click();
        f.prompter().queueFile(chosen);
        f.importButton()->click();
        QCOMPARE(f.prompter().fileRequests.first().filters, QStringList{"Report File (*.rpt)"});
        // Moved, not copied: the chosen file has left its place.
        QVERIFY(!QFileInfo::exists(chosen));
        QCOMPARE(test::fileContents(target), QByteArray("new report"));
        QCOMPARE(f.box(F::OrderForm)->text(), target);
        QCOMPARE(storedReport(), QStringLiteral("ordform.rpt")); // not stored until saved
        f.button(Form::Save)->click();
        // Kept by its name in the data folder, so the folder can move.
        QCOMPARE(storedReport(), QStringLiteral("ACMordform.rpt"));

        // A later import over it asks first: No keeps both files as they were, Yes replaces.
        f.button(Form::Edit)->click();
        QVERIFY(test::writeFile(chosen, "newer report"));
        for (MessageAnswer answer : {MessageAnswer::No, MessageAnswer::Yes}) {
            f.prompter().queueFile(chosen);
            f.prompter().queueAnswer(answer);
            f.importButton()->click();
            QCOMPARE(f.prompter().messages.last().buttons, MessageButtons::YesNo);
            QCOMPARE(test::fileContents(chosen) + test::fileContents(target),
                     QByteArray(answer == MessageAnswer::No ? "newer reportnew report" : "newer report"));
        }

        // Cancelling the dialog changes nothing.
        f.prompter().queueFile(std::nullopt);
        f.importButton()->click();
        QCOMPARE(f.box(F::OrderForm)->text(), target);
    }

    void sharedReportIsCopiedNotMoved() {
        test::TestContext tc;
        const QString dataDir = tc.context().dataDir();
        // The shared report, or another vendor's, stays where it is, so nobody loses theirs.
        const QString shared = VendorRecords::defaultReportPath(dataDir);
        QVERIFY(test::writeFile(shared, "shared"));
        const auto imported = VendorRecords::importReport(shared, dataDir, QStringLiteral("ACM"), tc.prompter());
        QCOMPARE(test::fileContents(shared) + test::fileContents(imported.path), QByteArray("sharedshared"));
    }

    void unreadableOrAmbiguousDetailsShowEmpty() {
        test::TestContext tc;
        AppContext& ctx = tc.context();
        const auto load = [&ctx](const char* code) {
            return VendorRecords::LoadVendorDetails(ctx.dataDir(), QString::fromLatin1(code));
        };
        QVERIFY(test::writeFile(ctx.dataFile(QStringLiteral("BADvendor.mdb")), QByteArray(4096, 'x')));
        for (int reads = 0; reads < 2; ++reads)
            QTest::ignoreMessage(QtWarningMsg, QRegularExpression(QStringLiteral("^SQLite result 26 ")));
        QVERIFY(load("BAD").details.isEmpty() && load("BAD").problem.contains(QStringLiteral("BAD")));

        // No details row, or two, are no vendor's details either, and that is no problem.
        QVERIFY(VendorRecords::CreateVendorEntry(ctx.systemDb(), ctx.dataDir(), QStringLiteral("Empty"),
                                                 QStringLiteral("EMP")));
        QVERIFY(load("EMP").details.isEmpty() && load("EMP").problem.isEmpty());
        QVERIFY(VendorRecords::SaveVendorDetails(ctx.dataDir(), QStringLiteral("EMP"), sampleDetails(), SaveMode::New));
        QVERIFY(!load("EMP").details.isEmpty());
        QVERIFY(
            Sql::run(*Store::OpenVendorDatabase(ctx.dataDir(), QStringLiteral("EMPvendor.mdb"), QStringLiteral("Raw")),
                     QStringLiteral("INSERT INTO vendor (vendorid, customerid, add1, county, postcode, repname, "
                                    "nextord, ordform) SELECT 'XX', customerid, add1, county, postcode, repname, "
                                    "nextord, ordform FROM vendor")));
        DatabaseFile::close(QStringLiteral("Raw"));
        QVERIFY(load("EMP").details.isEmpty() && load("EMP").problem.isEmpty());
        QVERIFY(!DatabaseFile::isOpen(VendorRecords::ConnectionName)); // no connection is left open
    }
};

QTEST_MAIN(TestVendorRecords)
#include "tst_vendorrecords.moc"
