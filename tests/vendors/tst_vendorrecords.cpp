#include "common/FormHelpers.h"
#include "common/Sql.h"
#include "shell/FileChooser.h"
#include "shell/MainWindow.h"
#include "shell/MenuMasks.h"
#include "shell/MenuWiring.h"
#include "store/DatabaseFile.h"
#include "store/Store.h"
#include "support/TestSupport.h"
#include "vendors/VendorRecords.h"
#include "vendors/VendorRecordsForm.h"
#include "vendors/VendorRepository.h"

#include <QAction>
#include <QApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QLabel>
#include <QLineEdit>
#include <QPointer>
#include <QPushButton>
#include <QSqlQuery>
#include <QSqlRecord>
#include <QTemporaryDir>
#include <QTest>

using namespace ordwell;
using test::TestContext;
using Form = VendorRecordsForm;

namespace {

VendorDetails sampleDetails() {
    VendorDetails d;
    d[VendorField::CustomerId] = QStringLiteral("CUST1");
    d[VendorField::Address1] = QStringLiteral("1 High Street");
    d[VendorField::County] = QStringLiteral("Kent");
    d[VendorField::Postcode] = QStringLiteral("CT1 1AA");
    d[VendorField::RepName] = QStringLiteral("Ann Smith");
    return d;
}

// A vendor as the window would have left it: its entry, its database and its details row.
void seedVendor(TestContext& tc, const QString& name, const QString& code, bool active = true) {
    AppContext& ctx = tc.context();
    QVERIFY(VendorRecords::CreateVendorEntry(ctx.systemDb(), ctx.dataDir(), name, code));
    QVERIFY(VendorRecords::SaveVendorDetails(ctx.dataDir(), code, sampleDetails(), SaveMode::New));
    if (!active)
        QVERIFY(VendorRepository::deactivateVendor(ctx.systemDb(), code));
}

// The stored details row of a vendor, read on a connection of the test's own.
QSqlRecord storedRow(const QString& dataDir, const QString& code, int* rowCount = nullptr) {
    QSqlRecord record;
    int rows = 0;
    {
        auto db = Store::OpenVendorDatabase(dataDir, Store::vendorFileName(code), QStringLiteral("TestRead"));
        if (db) {
            QSqlQuery q(*db);
            q.exec(QStringLiteral("SELECT * FROM vendor"));
            while (q.next()) {
                if (++rows == 1)
                    record = q.record();
            }
        }
    }
    DatabaseFile::close(QStringLiteral("TestRead"));
    if (rowCount)
        *rowCount = rows;
    return record;
}

int vendorRows(TestContext& tc) {
    return Sql::scalar(tc.context().systemDb(), QStringLiteral("SELECT count(*) FROM vendors")).value().toInt();
}

void writeFile(const QString& path, const QByteArray& content) {
    QFile f(path);
    QVERIFY(f.open(QIODevice::WriteOnly));
    f.write(content);
}

QByteArray readFile(const QString& path) {
    QFile f(path);
    return f.open(QIODevice::ReadOnly) ? f.readAll() : QByteArray();
}

// The window shown and active, as a user meets it; deleted when the test ends.
class OpenForm {
public:
    explicit OpenForm(TestContext& tc) : m_form(new Form(tc.context())) {
        m_form->beginToolWindow();
        m_form->show();
        m_form->activateWindow();
        if (!QTest::qWaitForWindowActive(m_form))
            qWarning("the vendor records window did not become active");
        QTest::qWait(10);
    }
    ~OpenForm() { delete m_form.data(); }
    Form* operator->() const { return m_form; }
    Form* get() const { return m_form; }

    QLineEdit* box(int i) const { return test::child<QLineEdit>(m_form, QStringLiteral("txtbox_%1").arg(i)); }
    QLineEdit* box(VendorField f) const { return box(static_cast<int>(f)); }
    QLineEdit* company() const { return test::child<QLineEdit>(m_form, QStringLiteral("txtcomp_0")); }
    QLineEdit* code() const { return test::child<QLineEdit>(m_form, QStringLiteral("txtcomp_1")); }
    QPushButton* button(int i) const { return test::child<QPushButton>(m_form, QStringLiteral("cmdbutton_%1").arg(i)); }
    QString position() const { return test::child<QLabel>(m_form, QStringLiteral("lblreccount"))->text(); }
    QString mask() const {
        QList<QAbstractButton*> buttons;
        for (int i = 0; i < Form::ButtonCount; ++i)
            buttons << button(i);
        return buttonMask(buttons);
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
    void fillDetails(const VendorDetails& d) const {
        for (int i = 0; i < static_cast<int>(VendorField::NextOrder); ++i)
            type(box(i), d.values[i]);
    }

private:
    QPointer<Form> m_form;
};

} // namespace

class TestVendorRecords : public QObject {
    Q_OBJECT
private slots:
    void initTestCase() { test::initTestEnvironment(); }

    void listPositionDecidesTheButtons() {
        {
            TestContext tc;
            OpenForm form(tc);
            QCOMPARE(form.position(), QStringLiteral("There are no active vendors"));
            QCOMPARE(form.mask(), QStringLiteral("000000011"));
            QTRY_COMPARE(QApplication::focusWidget(), form.button(Form::AddNew));
        }
        {
            TestContext tc;
            seedVendor(tc, QStringLiteral("Acme Ltd"), QStringLiteral("ACM"));
            OpenForm form(tc);
            QCOMPARE(form.position(), QStringLiteral("Record 1 of 1"));
            QCOMPARE(form.mask(), QStringLiteral("100000011"));
            QTRY_COMPARE(QApplication::focusWidget(), form.button(Form::Edit));
        }
        TestContext tc;
        seedVendor(tc, QStringLiteral("Zeta Supplies"), QStringLiteral("ZET"));
        seedVendor(tc, QStringLiteral("Acme Ltd"), QStringLiteral("ACM"));
        seedVendor(tc, QStringLiteral("Gone Ltd"), QStringLiteral("GON"), false);
        seedVendor(tc, QStringLiteral("Midway Ltd"), QStringLiteral("MID"));
        OpenForm form(tc);
        // Deactivated vendors are not listed; the rest come in code order.
        QCOMPARE(form.position(), QStringLiteral("Record 1 of 3"));
        QCOMPARE(form.company()->text(), QStringLiteral("Acme Ltd"));
        QCOMPARE(form.box(VendorField::CustomerId)->text(), QStringLiteral("CUST1"));
        QCOMPARE(form.mask(), QStringLiteral("100001111"));
        form.button(Form::Next)->click();
        QCOMPARE(form.code()->text(), QStringLiteral("MID"));
        QCOMPARE(form.position(), QStringLiteral("Record 2 of 3"));
        QCOMPARE(form.mask(), QStringLiteral("100111111"));
        form.button(Form::Last)->click();
        QCOMPARE(form.code()->text(), QStringLiteral("ZET"));
        QCOMPARE(form.mask(), QStringLiteral("100110011"));
        form.button(Form::Previous)->click();
        form.button(Form::First)->click();
        QCOMPARE(form.position(), QStringLiteral("Record 1 of 3"));
        QVERIFY(tc.prompter().messages.isEmpty());
    }

    void shortcodeChecks_data() {
        QTest::addColumn<QString>("name");
        QTest::addColumn<QString>("typed");
        QTest::addColumn<QString>("shown");
        QTest::addColumn<QString>("title");
        QTest::addColumn<QString>("text");
        QTest::newRow("blank name") << QString() << QStringLiteral("abc") << QStringLiteral("abc")
                                    << QStringLiteral("Company name error")
                                    << QStringLiteral("The company name is blank, please enter a company name");
        QTest::newRow("two characters") << QStringLiteral("Beta") << QStringLiteral("ab") << QStringLiteral("AB")
                                        << QStringLiteral("Company shortcode error")
                                        << QStringLiteral(
                                               "The Company shortcode must be 3 characters long, please correct this");
        QTest::newRow("empty code") << QStringLiteral("Beta") << QString() << QString()
                                    << QStringLiteral("Company shortcode error")
                                    << QStringLiteral(
                                           "The Company shortcode must be 3 characters long, please correct this");
        QTest::newRow("hyphen") << QStringLiteral("Beta") << QStringLiteral("a-c") << QStringLiteral("A-C")
                                << QStringLiteral("Illegal Shortcode")
                                << QStringLiteral("The vendor shortcode contains illegal characters");
        QTest::newRow("used by a deactivated vendor")
            << QStringLiteral("Beta") << QStringLiteral("old") << QStringLiteral("OLD")
            << QStringLiteral("Vendor code duplicated")
            << QStringLiteral("The vendor code has already been used, please enter a new vendor code");
    }

    void shortcodeChecks() {
        QFETCH(QString, name);
        QFETCH(QString, typed);
        QFETCH(QString, shown);
        QFETCH(QString, title);
        QFETCH(QString, text);
        TestContext tc;
        seedVendor(tc, QStringLiteral("Old Vendor"), QStringLiteral("OLD"), false);
        OpenForm form(tc);
        form.startAdd(name, typed);
        form.button(Form::Save)->click();
        QCOMPARE(tc.prompter().messages.size(), 1);
        QCOMPARE(tc.prompter().messages.first().title, title);
        QCOMPARE(tc.prompter().lastText(), text);
        QCOMPARE(form.code()->text(), shown);
        QCOMPARE(form->state(), Form::State::AddingIdentity);
        QCOMPARE(form.position(), QStringLiteral("Adding/Editing Record"));
        QCOMPARE(QApplication::focusWidget(), name.isEmpty() ? form.company() : form.code());
        QCOMPARE(vendorRows(tc), 1);
    }

    void addingAVendorTakesTwoStages() {
        TestContext tc;
        OpenForm form(tc);
        form.startAdd(QStringLiteral("O'Brien's Supplies"), QStringLiteral("obs"));
        QCOMPARE(boxColour(form.company()), BoxColour::Required);
        QCOMPARE(boxColour(form.box(VendorField::CustomerId)), BoxColour::Locked);
        form.button(Form::Save)->click();
        QVERIFY2(tc.prompter().messages.isEmpty(), qPrintable(tc.prompter().texts().join(QLatin1Char('|'))));

        // The identity is fixed: only Save is left, and the close box does nothing.
        QCOMPARE(form->state(), Form::State::AddingDetails);
        QCOMPARE(form.mask(), QStringLiteral("010000000"));
        QCOMPARE(form.code()->text(), QStringLiteral("OBS"));
        QVERIFY(form.company()->isReadOnly());
        QCOMPARE(boxColour(form.box(VendorField::Address2)), BoxColour::Optional);
        QCOMPARE(boxColour(form.box(VendorField::County)), BoxColour::Required);
        QCOMPARE(QApplication::focusWidget(), form.box(VendorField::CustomerId));
        QVERIFY(QFileInfo(tc.context().dataFile(QStringLiteral("OBSvendor.mdb"))).isFile());
        form->close();
        QTest::qWait(20);
        QVERIFY(form.get() && form->isVisible());

        VendorDetails d = sampleDetails();
        d[VendorField::Postcode] = QStringLiteral("ab1 2cd");
        d[VendorField::RepPhone] = QStringLiteral("(01234) 567890");
        form.fillDetails(d);
        form.button(Form::Save)->click();
        QVERIFY(tc.prompter().messages.isEmpty());
        QCOMPARE(form->state(), Form::State::Browse);
        QCOMPARE(form.mask(), QStringLiteral("100000011"));
        QCOMPARE(form.position(), QStringLiteral("Record 1 of 1"));
        QCOMPARE(QApplication::focusWidget(), form.button(Form::Exit));
        QCOMPARE(form.box(VendorField::NextOrder)->text(), QStringLiteral("1000000"));
        const QString defaultReport = QDir(tc.context().dataDir()).filePath(QStringLiteral("ordform.rpt"));
        QCOMPARE(form.box(VendorField::OrderForm)->text(), defaultReport);
        QCOMPARE(form.box(VendorField::Postcode)->text(), QStringLiteral("AB1 2CD"));

        int rows = 0;
        const QSqlRecord row = storedRow(tc.context().dataDir(), QStringLiteral("OBS"), &rows);
        QCOMPARE(rows, 1);
        QCOMPARE(row.value(QStringLiteral("vendorid")).toString(), QStringLiteral("OBS"));
        QCOMPARE(row.value(QStringLiteral("postcode")).toString(), QStringLiteral("AB1 2CD"));
        QCOMPARE(row.value(QStringLiteral("reptel")).toString(), QStringLiteral("(01234) 567890"));
        QCOMPARE(row.value(QStringLiteral("nextord")).toInt(), 1000000);
        QCOMPARE(row.value(QStringLiteral("ordform")).toString(), defaultReport);
        QVERIFY(row.value(QStringLiteral("add2")).isNull());
        QVERIFY(row.value(QStringLiteral("contacttel")).isNull());

        const auto listed = VendorRepository::activeVendors(tc.context().systemDb());
        QCOMPARE(listed->size(), 1);
        QCOMPARE(listed->first().name, QStringLiteral("O'Brien's Supplies"));
        QCOMPARE(listed->first().code, QStringLiteral("OBS"));
    }

    void newVendorLandsOnItsPlaceInTheList() {
        TestContext tc;
        seedVendor(tc, QStringLiteral("Acme Ltd"), QStringLiteral("ACM"));
        seedVendor(tc, QStringLiteral("Zeta Supplies"), QStringLiteral("ZET"));
        OpenForm form(tc);
        form.startAdd(QStringLiteral("Midway Ltd"), QStringLiteral("MID"));
        form.button(Form::Save)->click();
        QCOMPARE(form.position(), QStringLiteral("Record 2 of 3"));
        QCOMPARE(form.company()->text(), QStringLiteral("Midway Ltd"));
        form.fillDetails(sampleDetails());
        form.button(Form::Save)->click();
        QCOMPARE(form.mask(), QStringLiteral("100111111"));
        QCOMPARE(form->currentIndex(), 1);
    }

    void detailChecks_data() {
        QTest::addColumn<int>("field");
        QTest::addColumn<QString>("value");
        QTest::addColumn<QString>("message"); // empty: passes
        const auto row = [](const char* name, VendorField f, const QString& v, const char* msg) {
            QTest::newRow(name) << static_cast<int>(f) << v << QString::fromLatin1(msg);
        };
        row("postcode with hyphen", VendorField::Postcode, QStringLiteral("CT1-1AA"), "Please enter a valid postode");
        row("lower-case postcode", VendorField::Postcode, QStringLiteral("ct1 1aa"), "");
        row("no customer", VendorField::CustomerId, QString(), "please enter a customer ID");
        row("spaces only", VendorField::Address1, QStringLiteral("   "), "Please enter a primary address");
        row("no county", VendorField::County, QString(), "Please enter a county");
        row("no postcode", VendorField::Postcode, QString(), "Please enter a postcode");
        row("no rep", VendorField::RepName, QString(), "Please enter a representatives name");
        row("rep phone hyphen", VendorField::RepPhone, QStringLiteral("01234-567890"),
            "Please enter a valid representatives phone number");
        row("rep phone brackets", VendorField::RepPhone, QStringLiteral("(01234) 567890"), "");
        row("contact phone letters", VendorField::ContactPhone, QStringLiteral("ext 5"),
            "Please enter a valid contact phone number");
        row("fax hyphen", VendorField::ContactFax, QStringLiteral("01-2"), "Please enter a valid contact fax number");
        row("email unchecked", VendorField::RepEmail, QStringLiteral("not an email!"), "");
    }

    void detailChecks() {
        QFETCH(int, field);
        QFETCH(QString, value);
        QFETCH(QString, message);
        VendorDetails d = sampleDetails();
        d.values[field] = value;
        const VendorCheck check = VendorRecords::ValidateVendorDetails(d);
        QCOMPARE(check.passed() ? QString() : check.failure->text, message);
        if (!check.passed())
            QCOMPARE(static_cast<int>(check.focus), field);
        QCOMPARE(check.rewriteText, d[VendorField::Postcode].toUpper());
    }

    void detailChecksStopAtTheFirstFailure() {
        VendorDetails d; // everything missing, and a bad postcode
        d[VendorField::Postcode] = QStringLiteral("a-b");
        d[VendorField::RepPhone] = QStringLiteral("x");
        VendorCheck check = VendorRecords::ValidateVendorDetails(d);
        QCOMPARE(check.failure->text, QStringLiteral("Please enter a valid postode"));
        QCOMPARE(check.failure->title, QStringLiteral("Invalid data"));
        d[VendorField::Postcode].clear();
        check = VendorRecords::ValidateVendorDetails(d);
        QCOMPARE(check.failure->text, QStringLiteral("please enter a customer ID"));
    }

    void enterKeyChecksAndMovesOn() {
        TestContext tc;
        seedVendor(tc, QStringLiteral("Acme Ltd"), QStringLiteral("ACM"));
        OpenForm form(tc);
        // Browsing: a locked box is not checked.
        test::pressEnter(form.box(VendorField::RepPhone));
        QVERIFY(tc.prompter().messages.isEmpty());

        form.button(Form::Edit)->click();
        QCOMPARE(form->state(), Form::State::Editing);
        QCOMPARE(form.mask(), QStringLiteral("011000000"));
        QCOMPARE(QApplication::focusWidget(), form.box(VendorField::CustomerId));
        form.box(VendorField::CustomerId)->clear();
        test::pressEnter(form.box(VendorField::CustomerId));
        QCOMPARE(tc.prompter().lastText(), QStringLiteral("Please enter a customer ID"));
        QCOMPARE(tc.prompter().messages.last().title, QStringLiteral("Invalid Data"));
        QCOMPARE(QApplication::focusWidget(), form.box(VendorField::CustomerId));
        form.type(form.box(VendorField::CustomerId), QStringLiteral("C9"));
        QTest::keyClick(form.box(VendorField::CustomerId), Qt::Key_Enter);
        QCOMPARE(QApplication::focusWidget(), form.box(VendorField::Address1));

        form.type(form.box(VendorField::Postcode), QStringLiteral("ct1-1aa"));
        test::pressEnter(form.box(VendorField::Postcode));
        QCOMPARE(tc.prompter().lastText(), QStringLiteral("Please enter a valid postcode"));
        QCOMPARE(form.box(VendorField::Postcode)->text(), QStringLiteral("CT1-1AA"));
        form.type(form.box(VendorField::Postcode), QStringLiteral("ct1 1aa"));
        test::pressEnter(form.box(VendorField::Postcode));
        QCOMPARE(form.box(VendorField::Postcode)->text(), QStringLiteral("CT1 1AA"));
        QCOMPARE(QApplication::focusWidget(), form.box(VendorField::RepName));

        form.type(form.box(VendorField::ContactFax), QStringLiteral("01234-5"));
        test::pressEnter(form.box(VendorField::ContactFax));
        QCOMPARE(tc.prompter().lastText(), QStringLiteral("Please enter a valid phone number"));
        form.box(VendorField::ContactFax)->clear();
        test::pressEnter(form.box(VendorField::ContactFax));
        QCOMPARE(QApplication::focusWidget(), form.box(VendorField::ContactEmail));
        test::pressEnter(form.box(VendorField::ContactEmail));
        QCOMPARE(QApplication::focusWidget(), form.button(Form::Save));
        QCOMPARE(tc.prompter().messages.size(), 3);

        // The identity boxes during an add.
        form.button(Form::Cancel)->click();
        form.button(Form::AddNew)->click();
        test::pressEnter(form.company());
        QCOMPARE(tc.prompter().lastText(), QStringLiteral("Please enter a company name"));
        QCOMPARE(tc.prompter().messages.last().title, QStringLiteral("No Company name"));
        form.type(form.company(), QStringLiteral("New Co"));
        test::pressEnter(form.company());
        QCOMPARE(QApplication::focusWidget(), form.code());
        form.type(form.code(), QStringLiteral("acm"));
        test::pressEnter(form.code());
        QCOMPARE(tc.prompter().messages.last().title, QStringLiteral("Vendor code duplicated"));
        form.type(form.code(), QStringLiteral("new"));
        test::pressEnter(form.code());
        QCOMPARE(form.code()->text(), QStringLiteral("NEW"));
        QCOMPARE(QApplication::focusWidget(), form.button(Form::Save));
        QCOMPARE(vendorRows(tc), 1); // Enter checks; only Save creates
    }

    void cancelPutsEverythingBack() {
        TestContext tc;
        seedVendor(tc, QStringLiteral("Acme Ltd"), QStringLiteral("ACM"));
        seedVendor(tc, QStringLiteral("Beta Ltd"), QStringLiteral("BET"));
        OpenForm form(tc);
        form.button(Form::Next)->click();
        form.button(Form::Edit)->click();
        form.type(form.box(VendorField::County), QStringLiteral("Surrey"));
        // The close box stands for Cancel while editing.
        form->close();
        QTRY_COMPARE(form->state(), Form::State::Browse);
        QCOMPARE(form.box(VendorField::County)->text(), QStringLiteral("Kent"));
        QCOMPARE(form.code()->text(), QStringLiteral("BET"));
        QCOMPARE(form.mask(), QStringLiteral("100110011"));
        QCOMPARE(form.position(), QStringLiteral("Record 2 of 2"));
        QCOMPARE(QApplication::focusWidget(), form.button(Form::Exit));
        QVERIFY(form.box(VendorField::County)->isReadOnly());
        QCOMPARE(storedRow(tc.context().dataDir(), QStringLiteral("BET")).value(QStringLiteral("county")).toString(),
                 QStringLiteral("Kent"));

        form.startAdd(QStringLiteral("Never Ltd"), QStringLiteral("NEV"));
        form.button(Form::Cancel)->click();
        QCOMPARE(form->state(), Form::State::Browse);
        QCOMPARE(form.company()->text(), QStringLiteral("Acme Ltd"));
        QCOMPARE(form.box(VendorField::CustomerId)->text(), QStringLiteral("CUST1"));
        QCOMPARE(form.position(), QStringLiteral("Record 1 of 2"));
        QVERIFY(form.company()->isReadOnly());
        QCOMPARE(boxColour(form.company()), BoxColour::Locked);
        QCOMPARE(vendorRows(tc), 2);
        QVERIFY(!QFileInfo::exists(tc.context().dataFile(QStringLiteral("NEVvendor.mdb"))));
        QVERIFY(tc.prompter().messages.isEmpty());
    }

    void failedCreationLeavesNoVendorBehind() {
        TestContext tc;
        seedVendor(tc, QStringLiteral("Acme Ltd"), QStringLiteral("ACM"));
        // Something already holds the new vendor's file name.
        QVERIFY(QDir(tc.context().dataDir()).mkdir(QStringLiteral("BLKvendor.mdb")));
        OpenForm form(tc);
        form.startAdd(QStringLiteral("Blocked Ltd"), QStringLiteral("BLK"));
        form.button(Form::Save)->click();
        QCOMPARE(tc.prompter().messages.size(), 1);
        QVERIFY(tc.prompter().lastText().contains(QStringLiteral("could not be added")));
        QCOMPARE(tc.prompter().messages.last().icon, MessageIcon::Critical);
        QCOMPARE(vendorRows(tc), 1);
        QCOMPARE(form->state(), Form::State::AddingIdentity);
        QCOMPARE(form.mask(), QStringLiteral("011000000"));

        // A company name that is taken (in any case) is told plainly.
        tc.prompter().clear();
        form.type(form.company(), QStringLiteral("ACME LTD"));
        form.type(form.code(), QStringLiteral("AC2"));
        form.button(Form::Save)->click();
        QCOMPARE(tc.prompter().messages.size(), 1);
        QVERIFY(tc.prompter().lastText().contains(QStringLiteral("already exists")));
        QVERIFY(!tc.prompter().lastText().contains(QStringLiteral("constraint")));
        QCOMPARE(vendorRows(tc), 1);
        QVERIFY(!QFileInfo::exists(tc.context().dataFile(QStringLiteral("AC2vendor.mdb"))));
    }

    void importedReportIsMovedAndSavedWithTheDetails() {
        TestContext tc;
        seedVendor(tc, QStringLiteral("Acme Ltd"), QStringLiteral("ACM"));
        AppContext& ctx = tc.context();
        const QString chosen = QDir(ctx.DesktopPath).filePath(QStringLiteral("special.rpt"));
        const QString target = ctx.dataFile(QStringLiteral("ACMordform.rpt"));
        writeFile(chosen, "new report");
        OpenForm form(tc);
        QVERIFY(!test::child<QPushButton>(form.get(), QStringLiteral("cmdimprpt"))->isEnabled());
        form.button(Form::Edit)->click();
        tc.prompter().queueFile(chosen);
        test::child<QPushButton>(form.get(), QStringLiteral("cmdimprpt"))->click();
        QCOMPARE(tc.prompter().fileRequests.size(), 1);
        QCOMPARE(tc.prompter().fileRequests.first().filters, QStringList{QStringLiteral("Report File (*.rpt)")});
        QCOMPARE(ctx.FileChooserKind, FileChooser::ReportFiles);
        QVERIFY(ctx.ChosenFilePath.isEmpty());
        QVERIFY(!QFileInfo::exists(chosen));
        QCOMPARE(readFile(target), QByteArray("new report"));
        QCOMPARE(form.box(VendorField::OrderForm)->text(), target);
        // Not stored until saved.
        QCOMPARE(storedRow(ctx.dataDir(), QStringLiteral("ACM")).value(QStringLiteral("ordform")).toString(),
                 VendorRecords::defaultReportPath(ctx.dataDir()));
        form.button(Form::Save)->click();
        QCOMPARE(storedRow(ctx.dataDir(), QStringLiteral("ACM")).value(QStringLiteral("ordform")).toString(), target);

        // A later import over it asks first; No keeps both files as they were.
        form.button(Form::Edit)->click();
        writeFile(chosen, "newer report");
        tc.prompter().queueFile(chosen);
        tc.prompter().queueAnswer(MessageAnswer::No);
        test::child<QPushButton>(form.get(), QStringLiteral("cmdimprpt"))->click();
        QCOMPARE(tc.prompter().messages.size(), 1);
        QCOMPARE(tc.prompter().messages.last().buttons, MessageButtons::YesNo);
        QVERIFY(tc.prompter().lastText().contains(QStringLiteral("already exists")));
        QCOMPARE(readFile(chosen), QByteArray("newer report"));
        QCOMPARE(readFile(target), QByteArray("new report"));

        tc.prompter().queueFile(chosen);
        tc.prompter().queueAnswer(MessageAnswer::Yes);
        test::child<QPushButton>(form.get(), QStringLiteral("cmdimprpt"))->click();
        QVERIFY(!QFileInfo::exists(chosen));
        QCOMPARE(readFile(target), QByteArray("newer report"));
        QVERIFY(tc.prompter().unexpected.isEmpty());

        // Cancelling the dialog changes nothing.
        tc.prompter().queueFile(std::nullopt);
        test::child<QPushButton>(form.get(), QStringLiteral("cmdimprpt"))->click();
        QCOMPARE(form.box(VendorField::OrderForm)->text(), target);
        QCOMPARE(ctx.OpenWindowCount, 1);
    }

    void reportImportFromOtherPlaces() {
        TestContext tc;
        const QString shared = VendorRecords::defaultReportPath(tc.context().dataDir());
        writeFile(shared, "shared");
        const auto imported =
            VendorRecords::importReport(shared, tc.context().dataDir(), QStringLiteral("ACM"), tc.prompter());
        QCOMPARE(imported.outcome, VendorRecords::ImportOutcome::Imported);
        QCOMPARE(readFile(shared), QByteArray("shared"));
        QCOMPARE(readFile(imported.path), QByteArray("shared"));

        // From another file system a rename cannot work; the file must still end up moved.
        QTemporaryDir elsewhere(QStringLiteral("/dev/shm/ordwell-XXXXXX"));
        if (elsewhere.isValid()) {
            const QString chosen = elsewhere.filePath(QStringLiteral("far.rpt"));
            writeFile(chosen, "far");
            const auto moved =
                VendorRecords::importReport(chosen, tc.context().dataDir(), QStringLiteral("FAR"), tc.prompter());
            QCOMPARE(moved.outcome, VendorRecords::ImportOutcome::Imported);
            QVERIFY(!QFileInfo::exists(chosen));
            QCOMPARE(readFile(tc.context().dataFile(QStringLiteral("FARordform.rpt"))), QByteArray("far"));
        }
        const auto missing = VendorRecords::importReport(tc.context().dataFile(QStringLiteral("none.rpt")),
                                                         tc.context().dataDir(), QStringLiteral("ACM"), tc.prompter());
        QCOMPARE(missing.outcome, VendorRecords::ImportOutcome::Failed);
        QVERIFY(!missing.problem.isEmpty());
    }

    void unreadableVendorFilesShowEmptyDetails() {
        TestContext tc;
        AppContext& ctx = tc.context();
        auto loaded = VendorRecords::LoadVendorDetails(ctx.dataDir(), QStringLiteral("NON"));
        QVERIFY(loaded.details.isEmpty());
        QVERIFY(loaded.problem.contains(QStringLiteral("NON")));

        writeFile(ctx.dataFile(QStringLiteral("BADvendor.mdb")), QByteArray(4096, 'x'));
        loaded = VendorRecords::LoadVendorDetails(ctx.dataDir(), QStringLiteral("BAD"));
        QVERIFY(loaded.details.isEmpty());
        QVERIFY(!loaded.problem.isEmpty());

        QVERIFY(VendorRecords::CreateVendorEntry(ctx.systemDb(), ctx.dataDir(), QStringLiteral("Empty"),
                                                 QStringLiteral("EMP")));
        loaded = VendorRecords::LoadVendorDetails(ctx.dataDir(), QStringLiteral("EMP"));
        QVERIFY(loaded.details.isEmpty());
        QVERIFY(loaded.problem.isEmpty());

        // Two rows are no vendor's details either; and the window keeps no connection open.
        QVERIFY(VendorRecords::SaveVendorDetails(ctx.dataDir(), QStringLiteral("EMP"), sampleDetails(), SaveMode::New));
        QVERIFY(!VendorRecords::LoadVendorDetails(ctx.dataDir(), QStringLiteral("EMP")).details.isEmpty());
        {
            auto db = Store::OpenVendorDatabase(ctx.dataDir(), QStringLiteral("EMPvendor.mdb"), QStringLiteral("Raw"));
            QVERIFY(db);
            QVERIFY(Sql::run(*db, QStringLiteral("INSERT INTO vendor (vendorid, customerid, add1, county, postcode, "
                                                 "repname, nextord, ordform) VALUES ('XX', 'c', 'a', 'k', 'p', 'r', "
                                                 "1, 'f')")));
        }
        DatabaseFile::close(QStringLiteral("Raw"));
        QVERIFY(VendorRecords::LoadVendorDetails(ctx.dataDir(), QStringLiteral("EMP")).details.isEmpty());
        QVERIFY(!DatabaseFile::isOpen(VendorRecords::ConnectionName));
        QVERIFY(
            !VendorRecords::SaveVendorDetails(ctx.dataDir(), QStringLiteral("EMP"), sampleDetails(), SaveMode::Update));
    }

    void menuOpensOneWindowAndExitRestoresTheMenu() {
        TestContext tc;
        AppContext& ctx = tc.context();
        QVERIFY(Sql::run(ctx.systemDb(),
                         QStringLiteral("INSERT INTO Sysset (location, add1, county, postcode, "
                                        "contact, telephone, email) VALUES (?,?,?,?,?,?,?)"),
                         {QStringLiteral("Acme"), QStringLiteral("1 Road"), QStringLiteral("Kent"),
                          QStringLiteral("CT1 1AA"), QStringLiteral("Ann"), QStringLiteral("0123"),
                          QStringLiteral("a@b.c")}));
        MainWindow main(ctx);
        wireMenus(main, ctx);
        main.show();
        main.activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(&main));
        QTRY_VERIFY(main.menuEntry(QStringLiteral("mnuedvend"))->isEnabled());
        main.triggerMenu(QStringLiteral("mnuedvend"));
        auto* form = main.findChild<Form*>(QStringLiteral("frmaddeditvnd"));
        QVERIFY(form);
        QCOMPARE(form->windowTitle(), QStringLiteral("Add / Edit Vendors"));
        QCOMPARE(ctx.OpenWindowCount, 1);
        QVERIFY(!main.menuEntry(QStringLiteral("mnuedvend"))->isEnabled());
        QVERIFY(main.menuEntry(QStringLiteral("mnuabout"))->isEnabled());
        main.triggerMenu(QStringLiteral("mnuedvend"));
        QCOMPARE(main.findChildren<Form*>().size(), 1);

        QPointer<Form> guard(form);
        test::child<QPushButton>(form, QStringLiteral("cmdbutton_8"))->click();
        QTRY_VERIFY(!guard);
        QCOMPARE(ctx.OpenWindowCount, 0);
        QVERIFY(main.menuEntry(QStringLiteral("mnuedvend"))->isEnabled());
        QVERIFY(!main.menuEntry(QStringLiteral("mnuNewOrd"))->isEnabled());
    }
};

QTEST_MAIN(TestVendorRecords)
#include "tst_vendorrecords.moc"
