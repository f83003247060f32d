#include "ReportEngine.h"

#include "common/Dates.h"
#include "reports/ReportData.h"
#include "reports/ReportDatabase.h"
#include "reports/ReportParser.h"
#include "reports/ReportTemplate.h"

#include <QDate>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QHash>
#include <QSqlQuery>
#include <QSqlRecord>

namespace ordwell::ReportEngine {

namespace {

constexpr qint64 MaxReportFileBytes = 4 * 1024 * 1024;

Status fileProblem(const QString& reportFile, const QString& problem) {
    return Status::fail(QStringLiteral("The report file \"%1\" could not be used: %2")
                            .arg(QDir::toNativeSeparators(reportFile), problem));
}

// Runs the report's queries on its own connection and gathers their rows for the template.
class QueryRunner {
public:
    QueryRunner(const ReportDefinition& definition, QSqlDatabase db, const QHash<QString, QVariant>& parameters)
        : m_definition(definition), m_db(std::move(db)), m_parameters(parameters) {}

    // Every query run once, as lists on `root`; queries "in" another hang under its rows.
    Status fill(ReportData& root) {
        for (const ReportQuery& q : m_definition.queries) {
            auto statement = std::make_unique<QSqlQuery>(m_db);
            statement->setForwardOnly(true);
            if (!statement->prepare(q.sql))
                return failure(q, statement->lastError());
            m_statements.insert(q.name, std::shared_ptr<QSqlQuery>(std::move(statement)));
        }
        for (const ReportQuery& q : m_definition.queries) {
            if (!q.parent.isEmpty())
                continue;
            auto rows = run(q, {});
            if (!rows)
                return rows.status();
            root.set(q.name.toStdString(), std::move(rows.value()));
        }
        return Status::ok();
    }

private:
    Status failure(const ReportQuery& q, const QSqlError& error) const {
        if (ReportDatabase::isWriteRefusal(error))
            return Status::fail(QStringLiteral("query \"%1\" (line %2) tried to change the database; a report may "
                                               "only read")
                                    .arg(q.name)
                                    .arg(q.line));
        QString why = error.databaseText().trimmed();
        if (why.isEmpty())
            why = error.text().trimmed();
        return Status::fail(
            QStringLiteral("query \"%1\" (line %2) could not run: %3").arg(q.name).arg(q.line).arg(why));
    }

    Result<ReportData> run(const ReportQuery& q, const QHash<QString, QVariant>& parentRow) {
        QSqlQuery& statement = *m_statements.value(q.name);
        for (const QString& name : q.placeholders) {
            QVariant value;
            if (m_parameters.contains(name))
                value = m_parameters.value(name);
            else if (parentRow.contains(name))
                value = parentRow.value(name);
            else
                return Status::fail(QStringLiteral("query \"%1\" (line %2) uses :%3, which is neither a parameter "
                                                   "nor a column of query \"%4\"")
                                        .arg(q.name)
                                        .arg(q.line)
                                        .arg(name, q.parent));
            statement.bindValue(QLatin1Char(':') + name, value);
        }
        if (!statement.exec())
            return failure(q, statement.lastError());

        QList<const ReportQuery*> children;
        for (const ReportQuery& c : m_definition.queries) {
            if (c.parent == q.name)
                children.append(&c);
        }
        const QSqlRecord record = statement.record();
        std::vector<std::string> columns;
        QStringList columnNames;
        for (int i = 0; i < record.count(); ++i) {
            columns.push_back(record.fieldName(i).toStdString());
            columnNames.append(record.fieldName(i));
        }

        ReportData rows = ReportData::list();
        // The rows are read whole before any child runs, so the statement is free again.
        QList<QVariantList> values;
        while (statement.next()) {
            QVariantList row;
            row.reserve(int(columns.size()));
            for (int i = 0; i < int(columns.size()); ++i)
                row.append(statement.value(i));
            values.append(std::move(row));
        }
        if (statement.lastError().isValid())
            return failure(q, statement.lastError());
        statement.finish();

        for (const QVariantList& row : values) {
            ReportData object = ReportData::object();
            for (int i = 0; i < int(columns.size()); ++i)
                object.set(columns[std::size_t(i)], row.at(i));
            if (!children.isEmpty()) {
                QHash<QString, QVariant> thisRow;
                for (int i = 0; i < columnNames.size(); ++i)
                    thisRow.insert(columnNames.at(i), row.at(i));
                for (const ReportQuery* child : children) {
                    auto childRows = run(*child, thisRow);
                    if (!childRows)
                        return childRows.status();
                    object.set(child->name.toStdString(), std::move(childRows.value()));
                }
            }
            rows.append(std::move(object));
        }
        return rows;
    }

    const ReportDefinition& m_definition;
    QSqlDatabase m_db;
    QHash<QString, QVariant> m_parameters;
    QHash<QString, std::shared_ptr<QSqlQuery>> m_statements;
};

// The value of every declared parameter, or why one is missing or not known.
Result<QHash<QString, QVariant>> parameterValues(const ReportDefinition& def, const ReportRequest& request) {
    if (request.strictParameters) {
        for (auto it = request.parameters.cbegin(); it != request.parameters.cend(); ++it) {
            if (!def.parameter(it.key())) {
                QStringList known;
                for (const ReportParameter& p : def.parameters)
                    known << p.name;
                return Status::fail(QStringLiteral("the report has no parameter \"%1\" (%2)")
                                        .arg(it.key(), known.isEmpty() ? QStringLiteral("it takes none")
                                                                       : QStringLiteral("its parameters are ") +
                                                                             known.join(QStringLiteral(", "))));
            }
        }
    }
    QHash<QString, QVariant> values;
    for (const ReportParameter& p : def.parameters) {
        if (request.parameters.contains(p.name)) {
            values.insert(p.name, request.parameters.value(p.name));
        } else if (!p.defaultValue.isEmpty() || !p.required) {
            values.insert(p.name, p.defaultValue);
        } else {
            return Status::fail(
                QStringLiteral("no value was given for the parameter \"%1\" (%2)").arg(p.name, p.label));
        }
    }
    return values;
}

} // namespace

Result<ReportDefinition> load(const QString& reportFile) {
    const QFileInfo info(reportFile);
    if (reportFile.isEmpty())
        return Status::fail(QStringLiteral("No report file is named."));
    if (!info.exists())
        return fileProblem(reportFile, QStringLiteral("the file does not exist"));
    if (!info.isFile())
        return fileProblem(reportFile, QStringLiteral("it is not a file"));
    if (info.size() > MaxReportFileBytes)
        return fileProblem(reportFile, QStringLiteral("the file is too large to be a report definition"));
    QFile file(reportFile);
    if (!file.open(QIODevice::ReadOnly))
        return fileProblem(reportFile, QStringLiteral("the file could not be read (%1)").arg(file.errorString()));
    const QByteArray bytes = file.readAll();
    if (file.error() != QFileDevice::NoError)
        return fileProblem(reportFile, QStringLiteral("the file could not be read (%1)").arg(file.errorString()));
    const ReportParseResult parsed = parseReportDefinition(QString::fromUtf8(bytes));
    if (!parsed.ok)
        return fileProblem(reportFile, parsed.describeError());
    return parsed.definition;
}

Result<std::shared_ptr<RenderedReport>> run(const ReportRequest& request) {
    auto definition = load(request.reportFile);
    if (!definition)
        return definition.status();
    const ReportDefinition& def = definition.value();
    auto parameters = parameterValues(def, request);
    if (!parameters)
        return fileProblem(request.reportFile, parameters.message());

    auto db = request.server.isEmpty() ? ReportDatabase::open(request.databaseFile)
                                       : ReportDatabase::openOnServer(request.server, request.vendorCode);
    if (!db)
        return db.status();

    ReportData root = ReportData::object();
    root.addHelpers(QLocale());
    root.set(std::string("title"), def.title);
    root.set(std::string("today"), Dates::shortDate(QDate::currentDate()));
    root.set(std::string("vendorcode"), request.vendorCode);
    root.set(std::string("vendorname"), request.vendorName);
    for (auto it = parameters->cbegin(); it != parameters->cend(); ++it)
        root.set(it.key(), it.value());

    QueryRunner runner(def, db.value()->database(), parameters.value());
    if (const Status filled = runner.fill(root); !filled)
        return fileProblem(request.reportFile, filled.message());

    const ReportTemplate body(def.body.text);
    auto html = body.render(root);
    if (!html)
        return fileProblem(request.reportFile, QStringLiteral("in [body]: ") + html.message());
    return std::make_shared<RenderedReport>(def, html.value(), std::move(root));
}

Status renderToPdf(const ReportRequest& request, const QString& pdfPath) {
    auto report = run(request);
    if (!report)
        return report.status();
    const Status written = report.value()->writePdf(pdfPath);
    if (!written && !written.message().startsWith(QLatin1String("The PDF file")))
        return fileProblem(request.reportFile, written.message());
    return written;
}

} // namespace ordwell::ReportEngine
