#include "ReportSql.h"

namespace ordwell {

namespace {

bool isNameStart(QChar c) {
    return c.isLetter() || c == QLatin1Char('_');
}

bool isNameChar(QChar c) {
    return c.isLetterOrNumber() || c == QLatin1Char('_');
}

} // namespace

ReportSqlScan scanReportSql(const QString& sql) {
    ReportSqlScan scan;
    const qsizetype n = sql.size();
    // The text handed to the database, comments blanked out: Qt's own reading of :name
    // placeholders does not know comments, and would count one mentioned in a comment.
    QString cleaned = sql;
    auto blank = [&cleaned](qsizetype from, qsizetype to) {
        for (qsizetype k = from; k < to; ++k) {
            if (cleaned.at(k) != QLatin1Char('\n'))
                cleaned[k] = QLatin1Char(' ');
        }
    };
    qsizetype i = 0;
    qsizetype statementEnd = -1; // position of a ';' ending the statement
    auto fail = [&scan](const QString& why) {
        if (scan.problem.isEmpty())
            scan.problem = why;
    };

    while (i < n && scan.problem.isEmpty()) {
        const QChar c = sql.at(i);
        const QChar next = i + 1 < n ? sql.at(i + 1) : QChar();
        if (c.isSpace()) {
            ++i;
        } else if (c == QLatin1Char('-') && next == QLatin1Char('-')) {
            const qsizetype start = i;
            while (i < n && sql.at(i) != QLatin1Char('\n'))
                ++i;
            blank(start, i);
        } else if (c == QLatin1Char('/') && next == QLatin1Char('*')) {
            const qsizetype close = sql.indexOf(QLatin1String("*/"), i + 2);
            if (close < 0)
                fail(QStringLiteral("a /* comment is never closed"));
            const qsizetype start = i;
            i = close < 0 ? n : close + 2;
            blank(start, i);
        } else if (statementEnd >= 0) {
            // Anything but blanks and comments after the ';' is a second statement.
            fail(QStringLiteral("a query holds one SELECT statement only (text follows the ';')"));
        } else if (c == QLatin1Char('\'') || c == QLatin1Char('"') || c == QLatin1Char('`') || c == QLatin1Char('[')) {
            const QChar close = c == QLatin1Char('[') ? QLatin1Char(']') : c;
            qsizetype j = i + 1;
            while (true) {
                j = sql.indexOf(close, j);
                if (j < 0)
                    break;
                // A doubled quote stands for the quote itself.
                if (close != QLatin1Char(']') && j + 1 < n && sql.at(j + 1) == close) {
                    j += 2;
                    continue;
                }
                break;
            }
            if (j < 0)
                fail(QStringLiteral("a quote %1 is never closed").arg(c));
            i = j < 0 ? n : j + 1;
        } else if (c == QLatin1Char(';')) {
            statementEnd = i;
            ++i;
        } else if (c == QLatin1Char(':') && isNameStart(next)) {
            qsizetype j = i + 1;
            while (j < n && isNameChar(sql.at(j)))
                ++j;
            const QString name = sql.mid(i + 1, j - i - 1);
            if (!scan.placeholders.contains(name))
                scan.placeholders.append(name);
            i = j;
        } else if (c == QLatin1Char('?') || ((c == QLatin1Char('@') || c == QLatin1Char('$')) && isNameStart(next))) {
            fail(QStringLiteral("values are named with a colon, like :ordnum; %1 is not used").arg(c));
        } else if (isNameStart(c)) {
            qsizetype j = i + 1;
            while (j < n && isNameChar(sql.at(j)))
                ++j;
            if (scan.firstKeyword.isEmpty())
                scan.firstKeyword = sql.mid(i, j - i).toUpper();
            i = j;
        } else {
            if (scan.firstKeyword.isEmpty())
                scan.firstKeyword = QString(c);
            ++i;
        }
    }

    scan.statement = (statementEnd >= 0 ? cleaned.left(statementEnd) : cleaned).trimmed();
    if (scan.problem.isEmpty()) {
        if (scan.firstKeyword.isEmpty())
            scan.problem = QStringLiteral("the query is empty");
        else if (scan.firstKeyword != QLatin1String("SELECT") && scan.firstKeyword != QLatin1String("WITH"))
            scan.problem = QStringLiteral("a report may only read: the query must begin with SELECT or WITH, not %1")
                               .arg(scan.firstKeyword);
    }
    return scan;
}

} // namespace ordwell
