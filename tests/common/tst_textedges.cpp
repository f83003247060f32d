// The free-text boxes of the record windows (organisation details, vendor records) at their
// lengths, in any script: the boxes keep whole characters up to their columns' lengths, the
// stores keep what they are given exactly and refuse what is longer.
#include "common/RecordFields.h"
#include "common/Sql.h"
#include "settings/OrganisationDetails.h"
#include "shell/MainWindow.h"
#include "store/Schemas.h"
#include "store/Store.h"
#include "support/EdgeText.h"
#include "support/TestSupport.h"
#include "vendors/VendorRecords.h"
#include "vendors/VendorRepository.h"

#include <QLineEdit>
#include <QTest>

using namespace ordwell;
using F = VendorField;

namespace {

const QString Emoji = QStringLiteral("\U0001F600");

struct BoxColumn {
    const char* menu;
    const char* window;
    QString box;
    const Schema* schema;
    const char* table;
    QString column;
};

// The `vendor` table's columns behind the vendor window's detail boxes, in box order.
const char* const VendorColumns[TypedDetailCount] = {
    "customerid", "add1",     "add2",        "add3",       "county",     "postcode",    "repname",
    "reptel",     "repemail", "contactname", "contacttel", "contactfax", "contactemail"};

int vendorColumnLength(int box) {
    return vendorSchema().columnLength(QStringLiteral("vendor"), QString::fromLatin1(VendorColumns[box]));
}

QList<BoxColumn> freeTextBoxes() {
    QList<BoxColumn> boxes;
    const char* sysset[] = {"location", "department", "add1",      "add2", "add3", "county",
                            "postcode", "contact",    "telephone", "fax",  "email"};
    for (int i = 0; i < DetailsFieldCount; ++i)
        boxes.append({"mnusysdefault", "frmsysdefaults", QStringLiteral("txtbox_%1").arg(i), &systemSchema(), "Sysset",
                      QString::fromLatin1(sysset[i])});
    for (int i = 0; i < TypedDetailCount; ++i)
        boxes.append({"mnuedvend", "frmaddeditvnd", QStringLiteral("txtbox_%1").arg(i), &vendorSchema(), "vendor",
                      QString::fromLatin1(VendorColumns[i])});
    boxes.append({"mnuedvend", "frmaddeditvnd", QStringLiteral("txtcomp_0"), &systemSchema(), "vendors",
                  QStringLiteral("vendor")});
    return boxes;
}

// A text of exactly `length` units in the script of `fill`; digits where the box only takes
// digits (phone numbers) and capitals for a postcode, so the checks before saving pass.
QString fullText(const QString& column, const QString& fill, int length) {
    if (column.contains(QLatin1String("tel")) || column.contains(QLatin1String("fax")))
        return QString(length, QLatin1Char('7'));
    if (column == QLatin1String("postcode"))
        return QString(length, QLatin1Char('K'));
    const QString last = fill.size() == 2 ? fill : QStringLiteral("\u00e9");
    return test::edgeText(fill, last, length, last.size());
}

} // namespace

class TestTextEdges : public test::StrictTest {
    Q_OBJECT
private slots:
    void initTestCase() { test::initTestEnvironment(); }

    // Pasted into each box of the windows as they are opened from the menu.
    void boxesKeepWholeCharacters_data() {
        QTest::addColumn<int>("box");
        const QList<BoxColumn> boxes = freeTextBoxes();
        for (int i = 0; i < boxes.size(); ++i)
            QTest::addRow("%s %s", boxes.at(i).window, qPrintable(boxes.at(i).column)) << i;
    }
    void boxesKeepWholeCharacters() {
        QFETCH(int, box);
        const BoxColumn b = freeTextBoxes().at(box);
        test::TestContext tc;
        AppContext& ctx = tc.context();
        test::storeOrganisationDetails(ctx);
        QVERIFY(VendorRecords::CreateVendorEntry(ctx.systemDb(), ctx.dataDir(), QStringLiteral("Acme Ltd"),
                                                 QStringLiteral("ABC")));
        const auto window = test::openMainWindow(ctx);
        window->triggerMenu(QString::fromLatin1(b.menu));
        auto* form = window->findChild<QWidget*>(QString::fromLatin1(b.window));
        QVERIFY(form);
        auto* edit = test::child<QLineEdit>(form, b.box);
        const int length = b.schema->columnLength(QString::fromLatin1(b.table), b.column);
        QVERIFY(length > 0);
        QCOMPARE(edit->maxLength(), length);

        // A whole emoji in the last two units is kept; one unit over, it goes whole.
        const QStringList texts{test::edgeText(QStringLiteral("\u00e9"), Emoji, length, 2),
                                test::edgeText(QStringLiteral("\u00e9"), Emoji, length, 1)};
        for (const QString& text : texts) {
            edit->clear();
            edit->insert(text);
            QCOMPARE(edit->text(), test::keptOf(text, length));
            QVERIFY(test::wholeCharacters(edit->text()));
        }
    }

    void organisationDetailsStoredWhole_data() {
        QTest::addColumn<QString>("fill");
        QTest::newRow("accents") << QStringLiteral("\u00e5");
        QTest::newRow("emoji") << Emoji;
    }
    void organisationDetailsStoredWhole() {
        QFETCH(QString, fill);
        test::TestContext tc;
        OrganisationDetailsStore store(tc.context().systemDb());
        OrganisationDetails details;
        for (int f = 0; f < DetailsFieldCount; ++f)
            details[f] = fullText(detailsFieldInfo(f).column, fill, detailsFieldInfo(f).maxLength);
        OrganisationDetails checked = details;
        QCOMPARE(DetailsRules::validateForSave(checked).size(), 0);
        QVERIFY(store.save(details));
        const auto loaded = store.load();
        QVERIFY(loaded && loaded->has_value());
        QCOMPARE(loaded->value(), details);

        // One unit more in any box is refused whole, and the stored row stays as it was.
        for (int f = 0; f < DetailsFieldCount; ++f) {
            OrganisationDetails longer = details;
            longer[f] = QString(detailsFieldInfo(f).maxLength + 1, QLatin1Char('7'));
            QVERIFY2(!store.save(longer), qPrintable(detailsFieldInfo(f).column));
            QCOMPARE(store.load()->value(), details);
        }
    }

    void vendorDetailsStoredWhole_data() { organisationDetailsStoredWhole_data(); }
    void vendorDetailsStoredWhole() {
        QFETCH(QString, fill);
        test::TestContext tc;
        AppContext& ctx = tc.context();
        const int nameLength = systemSchema().columnLength(QStringLiteral("vendors"), QStringLiteral("vendor"));
        const QString name = fullText(QStringLiteral("vendor"), fill, nameLength);
        QVERIFY(VendorRecords::CreateVendorEntry(ctx.systemDb(), ctx.dataDir(), name, QStringLiteral("ABC")));
        QCOMPARE(
            Sql::scalar(ctx.systemDb(), QStringLiteral("SELECT vendor FROM vendors WHERE code = 'ABC'"))->toString(),
            name);

        VendorDetails details;
        for (int i = 0; i < TypedDetailCount; ++i)
            details[F(i)] = fullText(QString::fromLatin1(VendorColumns[i]), fill, vendorColumnLength(i));
        QVERIFY(VendorRecords::ValidateVendorDetails(details).passed());
        const auto saved =
            VendorRecords::SaveVendorDetails(ctx.dataDir(), QStringLiteral("ABC"), details, SaveMode::New);
        QVERIFY2(saved.isOk(), qPrintable(saved.message()));
        const VendorRecords::LoadedDetails loaded =
            VendorRecords::LoadVendorDetails(ctx.dataDir(), QStringLiteral("ABC"));
        QCOMPARE(loaded.problem, QString());
        QCOMPARE(loaded.details.values, details.values);

        for (int i = 0; i < TypedDetailCount; ++i) {
            VendorDetails longer = saved.value();
            longer[F(i)] = QString(vendorColumnLength(i) + 1, QLatin1Char('7'));
            QVERIFY2(!VendorRecords::SaveVendorDetails(ctx.dataDir(), QStringLiteral("ABC"), longer, SaveMode::Update),
                     VendorColumns[i]);
            QCOMPARE(VendorRecords::LoadVendorDetails(ctx.dataDir(), QStringLiteral("ABC")).details.values,
                     details.values);
        }
    }
};

QTEST_MAIN(TestTextEdges)
#include "tst_textedges.moc"
