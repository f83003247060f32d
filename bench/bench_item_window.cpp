// The item window over a catalogue of 1,000,000 items: how long it takes to open (counting the
// catalogue and showing the first item) and the process's peak memory with it open after
// paging to the end and back. Prints "<name> <value> <unit>" lines.
#include "BenchProcess.h"
#include "PeakMemory.h"
#include "SilentPrompter.h"
#include "app/AppContext.h"
#include "app/VendorSession.h"
#include "catalogue/ItemForm.h"
#include "common/Prompter.h"
#include "common/Sql.h"
#include "store/Store.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QFile>
#include <QLabel>
#include <QProcess>
#include <QPushButton>
#include <QTemporaryDir>
#include <cstdio>

using namespace ordwell;

namespace {

constexpr int ItemCount = 1000000;

// The catalogue is made by a separate run of this program, so its cost stays out of the figures.
int generate(int argc, char** argv) {
    QCoreApplication app(argc, argv);
    const QString dataDir = QString::fromLocal8Bit(argv[2]);
    if (!Store::CreateVendorDatabase(dataDir, QStringLiteral("BIG")))
        return 1;
    {
        auto db = Store::OpenVendorDatabase(dataDir, Store::vendorFileName(QStringLiteral("BIG")),
                                            QStringLiteral("generate"));
        if (!db)
            return 1;
        const Status made =
            Sql::run(*db,
                     QStringLiteral("WITH RECURSIVE n(i) AS (SELECT 0 UNION ALL SELECT i + 1 FROM n WHERE i < ?) "
                                    "INSERT INTO items (code, descr, packqty, defqty, price, priceexp) "
                                    "SELECT printf('IT%08d', i), 'Item ' || ((i * 7919) % ?) || ' description', "
                                    "1 + i % 12, 1, 10000 + (i % 5000) * 100, '2030-01-01' FROM n"),
                     {ItemCount - 1, ItemCount});
        if (!made) {
            std::fprintf(stderr, "%s\n", qPrintable(made.message()));
            return 1;
        }
    }
    QSqlDatabase::removeDatabase(QStringLiteral("generate"));
    return 0;
}

} // namespace

int main(int argc, char** argv) {
    if (bench::isGeneratorRun(argc, argv))
        return generate(argc, argv);
    bench::offscreenUnlessChosen();
    QApplication app(argc, argv);
    QTemporaryDir dir;
    if (!bench::generateInChild(dir, "the catalogue"))
        return 1;

    SilentPrompter prompter;
    AppContext context(dir.path(), dir.filePath(QStringLiteral("settings.ini")), prompter);
    if (!context.vendorSession().open(QStringLiteral("BIG"), QStringLiteral("Big Catalogue Ltd"))) {
        std::fprintf(stderr, "cannot open the vendor\n");
        return 1;
    }

    QElapsedTimer timer;
    timer.start();
    auto* form = new ItemForm(context);
    form->show();
    QCoreApplication::processEvents();
    const double openSeconds = timer.nsecsElapsed() / 1e9;
    const QString position = form->findChild<QLabel*>(QStringLiteral("lblreccount"))->text();
    if (position != QStringLiteral("Record 1 of %1").arg(ItemCount)) {
        std::fprintf(stderr, "unexpected position text: %s\n", qPrintable(position));
        return 1;
    }
    // Paging to the far end and back must not drag the catalogue into memory.
    for (int button : {7, 4, 3}) {
        form->findChild<QPushButton*>(QStringLiteral("cmdbutton_%1").arg(button))->click();
        QCoreApplication::processEvents();
    }
    const long peakKb = peakRssKb();
    delete form;
    context.vendorSession().close();

    std::printf("item_window_open_1m_s %.3f s\n", openSeconds);
    std::printf("item_window_rss_mb %.1f MB\n", peakKb / 1024.0);
    return 0;
}
