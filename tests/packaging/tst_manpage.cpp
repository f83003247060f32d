#include "app/Options.h"
#include "shell/ManPage.h"

#include <QRegularExpression>
#include <QTest>

using namespace ordwell;

namespace {

// What a reader of the rendered page sees: font changes gone, escaped hyphens plain.
QString plain(QString troff) {
    troff.remove(QRegularExpression(QStringLiteral("\\\\f[BIR]")));
    return troff.replace(QStringLiteral("\\-"), QStringLiteral("-"));
}

} // namespace

class TestManPage : public QObject {
    Q_OBJECT
private slots:
    // Every option --help shows is on the page, with its value name and the same sentence.
    void pageListsWhatHelpLists() {
        const QString page = plain(manPageOptions());
        const QString help = helpText();
        QCOMPARE(int(optionTable().size()),
                 int(help.count(QRegularExpression(QStringLiteral("^  -"), QRegularExpression::MultilineOption))));
        for (const OptionSpec& spec : optionTable()) {
            const QString longName = QStringLiteral("--") + spec.names.constLast();
            QVERIFY2(help.contains(longName), qPrintable(longName));
            QString entry = longName;
            if (!spec.valueName.isEmpty())
                entry += QLatin1Char(' ') + spec.valueName;
            QVERIFY2(page.contains(entry), qPrintable(entry));
            QVERIFY2(page.contains(spec.help), qPrintable(spec.help));
        }
    }

    // A bare '-' may be typeset as a hyphen or dash, which breaks copying an option from the
    // page; and a line starting with '.' or '\'' would be read as a request.
    void troffIsEscaped() {
        const QStringList lines = manPageOptions().split(QLatin1Char('\n'));
        for (const QString& line : lines) {
            if (line.startsWith(QLatin1Char('.'))) {
                QCOMPARE(line, QStringLiteral(".TP"));
                continue;
            }
            QVERIFY2(!line.startsWith(QLatin1Char('\'')), qPrintable(line));
            for (qsizetype i = 0; i < line.size(); ++i) {
                if (line[i] == QLatin1Char('-'))
                    QVERIFY2(i > 0 && line[i - 1] == QLatin1Char('\\'), qPrintable(line));
            }
        }
    }

    void templateIsFilledAtItsMarker_data() {
        QTest::addColumn<QString>("pageTemplate");
        QTest::addColumn<bool>("filled");
        const QString marker = QString::fromLatin1(manPageOptionsMarker);
        QTest::newRow("marker between sections") << QStringLiteral(".SH OPTIONS\n%1\n.SH FILES\n").arg(marker) << true;
        QTest::newRow("marker last, no newline") << QStringLiteral(".SH OPTIONS\n%1").arg(marker) << true;
        QTest::newRow("no marker") << QStringLiteral(".SH OPTIONS\n.SH FILES\n") << false;
        QTest::newRow("marker only inside a line") << QStringLiteral("x %1\n").arg(marker) << false;
    }
    void templateIsFilledAtItsMarker() {
        QFETCH(QString, pageTemplate);
        QFETCH(bool, filled);
        const QString page = fillManPage(pageTemplate);
        if (!filled) {
            QVERIFY(page.isEmpty());
            return;
        }
        const QString marker = QString::fromLatin1(manPageOptionsMarker);
        QVERIFY(!page.contains(marker));
        QCOMPARE(page, QString(pageTemplate).replace(marker, manPageOptions()));
    }
};

QTEST_GUILESS_MAIN(TestManPage)
#include "tst_manpage.moc"
