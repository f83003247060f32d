// A command line as bytes: split into arguments at NUL bytes (as the kernel hands them over)
// and read by the option parser, whose answer must hold together.
#include "FuzzSupport.h"

#include "app/Options.h"

#include <QCoreApplication>

using namespace ordwell;

extern "C" int LLVMFuzzerInitialize(int* argc, char*** argv) {
    new QCoreApplication(*argc, *argv); // lives as long as the process
    fuzz::fixLocale();
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    QStringList arguments{QStringLiteral("ordwell")};
    const QByteArray bytes(reinterpret_cast<const char*>(data), qsizetype(size));
    for (const QByteArray& argument : bytes.split('\0'))
        arguments << QString::fromLocal8Bit(argument);

    const Options options = parseOptions(arguments);
    fuzz::check(!options.helpText.isEmpty(), "no help text");
    if (!options.error.isEmpty())
        return 0;

    // Accepted: the combinations the parser lets through are the ones a run can carry out.
    fuzz::check(options.splashMs >= 0, "a negative splash pause accepted");
    fuzz::check(options.importFile.isEmpty() || options.renderReport.isEmpty(), "import and report together");
    if (!options.renderReport.isEmpty())
        fuzz::check(!options.vendorCode.isEmpty() && !options.pdfOutput.isEmpty(), "a report run missing its parts");
    else
        fuzz::check(options.pdfOutput.isEmpty() && options.reportParameters.isEmpty() &&
                        options.vendorCode.isEmpty() == options.importFile.isEmpty(),
                    "options accepted without the run they belong to");
    for (const auto& [name, value] : options.reportParameters)
        fuzz::check(!name.isEmpty() && !name.contains(QLatin1Char('=')), "a parameter without a proper name", name);

    // Reading the accepted options again gives the same answer.
    const Options again = parseOptions(arguments);
    fuzz::check(again.error.isEmpty() && again.vendorCode == options.vendorCode &&
                    again.reportParameters == options.reportParameters && again.dataDir == options.dataDir,
                "the same command line read twice differs");
    resolveDataDir(options);
    resolveDesktopDir(options);
    return 0;
}
