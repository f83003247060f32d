// A report file as bytes: parsed, its queries run over a small vendor database made once, its
// templates filled, and the result laid out on pages as the preview and the PDF file do.
#include "FuzzSupport.h"

#include "reports/ReportFixture.h"

#include "reports/ReportEngine.h"
#include "reports/ReportParser.h"

#include <QBuffer>
#include <QFile>
#include <QGuiApplication>
#include <QPdfWriter>
#include <QTemporaryDir>

using namespace ordwell;

namespace {

QTemporaryDir* workDir = nullptr;
QString databasePath;
QString reportPath;
constexpr auto VendorCode = "ABC";

} // namespace

extern "C" int LLVMFuzzerInitialize(int* argc, char*** argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    qputenv("QT_LOGGING_RULES", "*=false");
    new QGuiApplication(*argc, *argv); // lives as long as the process
    fuzz::fixLocale();
    workDir = new QTemporaryDir();
    if (!workDir->isValid())
        fuzz::fail("no temporary folder");
    {
        test::ReportFixture fixture(workDir->path(), QString::fromLatin1(VendorCode), QStringLiteral("Acme Supplies"));
        fixture.addStandardOrders();
        databasePath = fixture.databasePath();
    }
    reportPath = workDir->filePath(QStringLiteral("fuzzed.rpt"));
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    const QString text = QString::fromUtf8(reinterpret_cast<const char*>(data), qsizetype(size));
    // The parser alone promises to be safe on any text, and to say where it stopped.
    const ReportParseResult parsed = parseReportDefinition(text);
    if (!parsed.ok) {
        fuzz::check(!parsed.error.isEmpty(), "a refused report without a reason");
        fuzz::check(parsed.errorLine >= 0 && parsed.errorLine <= text.count(QLatin1Char('\n')) + 1,
                    "the error names a line the file does not have", parsed.describeError());
        return 0;
    }

    {
        QFile file(reportPath);
        if (!file.open(QIODevice::WriteOnly | QIODevice::Truncate))
            fuzz::fail("cannot write the report file");
        file.write(reinterpret_cast<const char*>(data), qint64(size));
    }
    ReportRequest request;
    request.reportFile = reportPath;
    request.databaseFile = databasePath;
    request.vendorCode = QString::fromLatin1(VendorCode);
    request.vendorName = QStringLiteral("Acme Supplies");
    // The values the order form hands every report.
    request.parameters.insert(QStringLiteral("ordnum"), QStringLiteral("ABC0000001"));
    request.parameters.insert(QStringLiteral("month"), QStringLiteral("2024-03"));
    request.strictParameters = false;
    const auto report = ReportEngine::run(request);
    if (!report) {
        fuzz::check(report.message().contains(QStringLiteral("fuzzed.rpt")) ||
                        report.message().startsWith(QStringLiteral("The vendor database")),
                    "a failure that does not name the report file", report.message());
        return 0;
    }

    QBuffer pdf;
    pdf.open(QIODevice::WriteOnly);
    QPdfWriter writer(&pdf);
    writer.setPageLayout(report.value()->pageLayout());
    const Result<int> pages = report.value()->paint(writer);
    if (pages)
        fuzz::check(pages.value() >= 1, "a laid-out report without a page");
    return 0;
}
