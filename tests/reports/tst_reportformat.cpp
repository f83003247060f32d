// The report-definition format: what the parser accepts, what it refuses and where, how
// query text is read, and what the template helpers print.
#include "reports/ReportData.h"
#include "reports/ReportParser.h"
#include "reports/ReportSql.h"
#include "reports/ReportTemplate.h"
#include "support/TestSupport.h"

#include <QTest>

using namespace ordwell;

namespace {

QString minimal(const QString& extra = {}, const QString& body = QStringLiteral("<p>{{title}}</p>")) {
    return QStringLiteral("[report]\ntitle = T\n") + extra + QStringLiteral("\n[body]\n") + body + QLatin1Char('\n');
}

void addRefused(const char* name, const QString& text, int line, const char* reason) {
    QTest::newRow(name) << text << line << QString::fromUtf8(reason);
}

QString render(const QString& text, ReportData& data) {
    ReportTemplate t(text);
    auto out = t.render(data);
    return out ? out.value() : QStringLiteral("ERROR: ") + out.message();
}

} // namespace

class TestReportFormat : public test::StrictTest {
    Q_OBJECT
private slots:
    void initTestCase() { test::initTestEnvironment(); }

    // Written with Windows line ends, which must not leave a "\r" on any value.
    void pageSetUp() {
        QString text = minimal(
            QStringLiteral("paper = letter\norientation = Landscape\nmargins = 10 20\nfont = DejaVu Sans 11.5"));
        text.replace(QLatin1Char('\n'), QStringLiteral("\r\n"));
        const auto parsed = parseReportDefinition(text);
        QVERIFY2(parsed.ok, qPrintable(parsed.describeError()));
        const ReportDefinition& d = parsed.definition;
        QCOMPARE(d.paper, QPageSize::Letter);
        QCOMPARE(d.orientation, QPageLayout::Landscape);
        QCOMPARE(d.marginsMm, QMarginsF(20, 10, 20, 10));
        QCOMPARE(d.fontFamily, QStringLiteral("DejaVu Sans"));
        QCOMPARE(d.fontPoints, 11.5);
        const auto four = parseReportDefinition(minimal(QStringLiteral("margins = 1 2 3 4")));
        QCOMPARE(four.definition.marginsMm, QMarginsF(4, 1, 2, 3));
    }

    void parametersAndQueries() {
        const QString text =
            QStringLiteral("# comment\n[report]\ntitle = T\n"
                           "[parameter ordnum]\nlabel = Order number\n"
                           "[parameter from]\ndefault = 2020-01-01\n"
                           "[query orders]\nSELECT * FROM orderhead WHERE orderid = :ordnum "
                           "AND orderdate >= :from AND note1 <> ':notaparam' -- :nor this\n"
                           "[query lines in orders]\nSELECT * FROM orderline WHERE orderid = :orderid;\n"
                           "[body]\n  [indented text is template]\n{{#orders}}{{/orders}}\n");
        const auto parsed = parseReportDefinition(text);
        QVERIFY2(parsed.ok, qPrintable(parsed.describeError()));
        const ReportDefinition& d = parsed.definition;
        QCOMPARE(d.parameters.size(), 2);
        QVERIFY(d.parameter(QStringLiteral("ordnum"))->required);
        QVERIFY(!d.parameter(QStringLiteral("from"))->required);
        QCOMPARE(d.queries.at(0).placeholders, QStringList({QStringLiteral("ordnum"), QStringLiteral("from")}));
        QCOMPARE(d.queries.at(1).parent, QStringLiteral("orders"));
        QCOMPARE(d.queries.at(1).placeholders, QStringList{QStringLiteral("orderid")});
        QVERIFY(!d.queries.at(1).sql.endsWith(QLatin1Char(';')));
        QVERIFY(d.body.text.contains(QLatin1String("[indented text is template]")));
        QCOMPARE(d.body.firstLine, 13);
    }

    // Every refusal names the line a person has to look at.
    void refused_data() {
        QTest::addColumn<QString>("text");
        QTest::addColumn<int>("line");
        QTest::addColumn<QString>("reason");
        addRefused("empty file", "", 0, "no [report] section");
        addRefused("text first", "hello\n[report]\ntitle=T\n[body]\nx", 1, "before the first section");
        addRefused("unknown section", minimal() + "[qeury x]\nSELECT 1", 6, "unknown section [qeury x]");
        addRefused("unknown setting", "[report]\ntitle = T\npapr = A4\n[body]\nx", 3, "unknown setting \"papr\"");
        addRefused("no equals", "[report]\ntitle T\n[body]\nx", 2, "name = value");
        addRefused("bad paper", minimal("paper = A9"), 3, "unknown paper");
        addRefused("bad margins", minimal("margins = 1 2 3"), 3, "one, two or four");
        addRefused("no title", "[report]\npaper = A4\n[body]\nx", 1, "needs a title");
        addRefused("no body", "[report]\ntitle = T\n", 0, "no [body]");
        addRefused("two bodies", minimal() + "[body]\ny", 6, "second [body]");
        addRefused("bad name", minimal() + "[query 9lives]\nSELECT 1", 6, "not a usable name");
        addRefused("reserved name", minimal() + "[parameter page]", 6, "already gives");
        addRefused("same name twice", minimal() + "[parameter a]\n[query a]\nSELECT 1", 7, "already used on line 6");
        addRefused("undeclared parameter", minimal() + "[query q]\nSELECT * FROM items WHERE code = :code", 6,
                   "uses :code, but there is no [parameter code]");
        addRefused("parent later", minimal() + "[query a in b]\nSELECT 1\n[query b]\nSELECT 1", 6,
                   "no query \"b\" comes before it");
        addRefused("delete", minimal() + "[query q]\nDELETE FROM orderhead", 6,
                   "must begin with SELECT or WITH, not DELETE");
        addRefused("unclosed section", minimal({}, "<p>\n{{#lines}}\n<td>"), 6, "{{#lines}} is never closed");
        addRefused("stray close", minimal({}, "a\nb\n{{/lines}}"), 7,
                   "{{/lines}} closes a section that was not opened");
        addRefused("unclosed tag", minimal({}, "a\n{{title"), 6, "never closed with }}");
        addRefused("footer error", minimal() + "[footer]\nPage {{#page}}", 7, "in [footer]");
    }
    void refused() {
        QFETCH(QString, text);
        QFETCH(int, line);
        QFETCH(QString, reason);
        const auto parsed = parseReportDefinition(text);
        QVERIFY(!parsed.ok);
        QVERIFY2(parsed.error.contains(reason), qPrintable(parsed.error));
        QCOMPARE(parsed.errorLine, line);
        if (line > 0)
            QVERIFY(parsed.describeError().startsWith(QStringLiteral("line %1: ").arg(line)));
    }

    // What the parser refuses a query for; an empty problem is a query that may run.
    void sqlScan_data() {
        QTest::addColumn<QString>("sql");
        QTest::addColumn<QStringList>("placeholders");
        QTest::addColumn<QString>("problem");
        auto row = [](const char* name, const char* sql, const QStringList& placeholders, const char* problem) {
            QTest::newRow(name) << QString::fromUtf8(sql) << placeholders << QString::fromUtf8(problem);
        };
        row("plain", "SELECT a FROM t WHERE a = :x AND b = :x", {"x"}, "");
        row("comment first", "/* hi */ -- there\nselect 1", {}, "");
        row("with", "WITH q AS (SELECT :a) SELECT * FROM q", {"a"}, "");
        row("quoted colon", "SELECT \"a:b\", [c:d], `e:f`, 'it''s :g' FROM t", {}, "");
        row("trailing semicolon", "SELECT 1;  -- done", {}, "");
        row("update", "update t set a = 1", {}, "must begin with SELECT or WITH, not UPDATE");
        row("pragma", "PRAGMA query_only = OFF", {}, "not PRAGMA");
        row("two", "SELECT 1; SELECT 2", {}, "one SELECT statement only");
        row("positional", "SELECT * FROM items WHERE code = ?", {}, "named with a colon");
        row("dollar", "SELECT $x", {}, "named with a colon");
        row("open quote", "SELECT 'abc", {}, "quote ' is never closed");
        row("empty", "  -- nothing\n", {}, "the query is empty");
        row("open comment", "SELECT 1 /* oops", {}, "/* comment is never closed");
    }
    void sqlScan() {
        QFETCH(QString, sql);
        QFETCH(QStringList, placeholders);
        QFETCH(QString, problem);
        const ReportSqlScan scan = scanReportSql(sql);
        QCOMPARE(scan.placeholders, placeholders);
        if (problem.isEmpty())
            QVERIFY2(scan.problem.isEmpty(), qPrintable(scan.problem));
        else
            QVERIFY2(scan.problem.contains(problem), qPrintable(scan.problem));
    }

    void helpersAndEscaping_data() {
        QTest::addColumn<QString>("tpl");
        QTest::addColumn<QString>("expected");
        auto row = [](const char* name, const char* tpl, const char* expected) {
            QTest::newRow(name) << QString::fromUtf8(tpl) << QString::fromUtf8(expected);
        };
        row("money", "{{#money}}{{amount}}{{/money}}", "1,234.57");
        row("money half away from zero", "{{#money}}{{negative}}{{/money}}", "-0.13");
        row("money of real", "{{#money}}{{real}}{{/money}}", "2.50");
        row("money of nothing", "[{{#money}}{{missing}}{{/money}}]", "[]");
        row("short date", "{{#date}}{{day}}{{/date}}", "11/03/2020");
        row("date and time", "{{#date}}{{stamp}}{{/date}}", "04/07/1980");
        row("long date", "{{#longdate}}{{day}}{{/longdate}}", "Wednesday, 11 March 2020");
        row("not a date", "{{#date}}{{text}}{{/date}}", "a &amp; b");
        row("escaped", "{{text}}", "a &amp; b");
        row("raw", "{{{text}}}", "a & b");
        row("null is false", "{{#none}}x{{/none}}{{^none}}empty{{/none}}", "empty");
        row("empty is false", "{{^blank}}empty{{/blank}}", "empty");
        row("zero is a value", "{{#zero}}[{{zero}}]{{/zero}}", "[0]");
        row("rows", "{{#rows}}{{n}},{{/rows}}", "1,2,");
    }
    void helpersAndEscaping() {
        QFETCH(QString, tpl);
        QFETCH(QString, expected);
        ReportData data = ReportData::object();
        data.addHelpers(QLocale(QLocale::English, QLocale::UnitedKingdom));
        data.set(QStringLiteral("amount"), qlonglong(12345678));
        data.set(QStringLiteral("negative"), qlonglong(-1250));
        data.set(QStringLiteral("real"), 25000.0);
        data.set(QStringLiteral("day"), QStringLiteral("2020-03-11"));
        data.set(QStringLiteral("stamp"), QStringLiteral("1980-07-04T10:30:00"));
        data.set(QStringLiteral("text"), QStringLiteral("a & b"));
        data.set(QStringLiteral("none"), QVariant());
        data.set(QStringLiteral("blank"), QString());
        data.set(QStringLiteral("zero"), qlonglong(0));
        ReportData rows = ReportData::list();
        for (int n : {1, 2}) {
            ReportData row = ReportData::object();
            row.set(QStringLiteral("n"), n);
            rows.append(std::move(row));
        }
        data.set(std::string("rows"), std::move(rows));
        QCOMPARE(render(tpl, data), expected);
    }
};

QTEST_MAIN(TestReportFormat)
#include "tst_reportformat.moc"
